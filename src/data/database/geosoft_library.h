#pragma once

#include <cstdint>
#include <string>

/// A library that is loaded at run time and stays for the life of the process.
class LoadedLibrary {
public:
    /// name: of the file, without what the system puts around it. Looked for where the system looks for libraries, and in the
    /// folders of PATH. Fails with a `Fault`.
    explicit LoadedLibrary(const std::string & name);

    /// Fails with a `Fault` that names the operation.
    void * find(const char * operation) const;

private:
    std::string file_;
    void * handle_ = nullptr;
};

/// One operation of a library, called as the function that it is.
template <class Signature>
class LibraryOperation;

template <class Result, class... Arguments>
class LibraryOperation<Result(Arguments...)> {
public:
    LibraryOperation(const LoadedLibrary & library, const char * name)
        : call_(reinterpret_cast<Result (*)(Arguments...)>(library.find(name)))
    {
    }

    Result operator()(Arguments... arguments) const { return call_(arguments...); }

private:
    Result (*call_)(Arguments...);
};

/// What the vendor's library gives out for anything it holds; 0 is none.
using GeosoftHandle = std::int32_t;

/// The vendor's operations, by the names under which its libraries have them.
///
/// Only the names are certain. The signatures are ASSUMED, here and nowhere else: C calls; the session first, then the object;
/// all handles, counts and types 32-bit integers; positions, rows and elements from 0; a text to be filled in is a buffer and its
/// size; what gives no result returns 0 when it is done and anything else when it failed.
struct GeosoftOperations {
    using Handle = GeosoftHandle;
    using Number = std::int32_t;
    using Text = const char *;
    template <class Signature>
    using Operation = LibraryOperation<Signature>;

    LoadedLibrary geodist{ "geodist" }, geogx{ "geogx" };

    // client, version
    Operation<Handle(Text, Text)> create_session{ geodist, "Std_Create_GEO" };

    // session, file, user, password; the first gives 1 or 0
    Operation<Number(Handle, Text, Text, Text)> can_open_database{ geogx, "Std_iCanOpen_DB" };
    Operation<Handle(Handle, Text, Text, Text)> open_database{ geogx, "Std_Open_DB" };
    Operation<Number(Handle, Handle)> close_database{ geogx, "Std_Destroy_DB" };

    // a list of symbols: its parts are 0 the names and 1 the handles
    Operation<Handle(Handle, Number width)> create_list{ geogx, "Std_Create_LST" };
    Operation<Number(Handle, Handle database, Handle list, Number symbols)> list_symbols{ geogx, "Std_SymbLST_DB" };
    Operation<Number(Handle, Handle list)> list_size{ geogx, "Std_iSize_LST" };
    Operation<Number(Handle, Handle list, Number part, Number position, char *, Number)> list_text{ geogx, "Std_GtItem_LST" };
    Operation<Number(Handle, Handle list, Number part, Number position)> list_number{ geogx, "Std_iGetInt_LST" };
    Operation<Number(Handle, Handle list)> destroy_list{ geogx, "Std_Destroy_LST" };

    // session, database, then a name (and the kind of symbols) or a symbol; an array width of 1 or less is a plain channel
    Operation<Handle(Handle, Handle, Text, Number symbols)> find_symbol{ geogx, "Std_FindSymb_DB" };
    Operation<Handle(Handle, Handle, Text)> find_channel{ geogx, "Std_FindChan_DB" };
    Operation<Number(Handle, Handle, Handle)> lock_symbol{ geogx, "Std_LockSymb_DB" };
    Operation<Number(Handle, Handle, Handle)> unlock_symbol{ geogx, "Std_UnLockSymb_DB" };
    Operation<Number(Handle, Handle, Handle)> channel_type{ geogx, "Std_iGetChanType_DB" };
    Operation<Number(Handle, Handle, Handle)> array_width{ geogx, "Std_iGetColVA_DB" };
    Operation<Number(Handle, Handle, Handle)> array_size{ geogx, "Std_iGetChanArraySize_DB" };

    // a vector holds one column of values, an array several; both grow to what is read into them
    Operation<Handle(Handle, Number type, Number rows)> create_vector{ geogx, "Std_CreateExt_VV" };
    Operation<Handle(Handle, Number type, Number rows, Number elements)> create_array{ geogx, "Std_CreateExt_VA" };
    Operation<Number(Handle, Handle)> destroy_values{ geogx, "Std_Destroy_VV" }; // of either kind

    Operation<Number(Handle, Handle database, Handle line, Handle channel, Handle vector)> read_vector{ geogx,
                                                                                                        "Std_GetChanVV_DB" };
    Operation<Number(Handle, Handle database, Handle line, Handle channel, Handle array)> read_array{ geogx, "Std_GetChanVA_DB" };
    Operation<Number(Handle, Handle array, Number element, Handle vector)> take_element{ geogx, "Std_GetVV_VA" };
    Operation<Number(Handle, Handle vector)> vector_length{ geogx, "Std_iLength_VV" };
    Operation<double(Handle, Handle vector, Number row)> real_value{ geogx, "Std_rGetReal_VV" };
    Operation<Number(Handle, Handle vector, Number row)> integer_value{ geogx, "Std_iGetInt_VV" };
    Operation<Number(Handle, Handle vector, Number row, char *, Number)> text_value{ geogx, "Std_IGetString_VV" };

    // session, module's name, its size, description, its size; gives the number
    Operation<Number(Handle, char *, Number, char *, Number)> last_error{ geogx, "Std_sGetError_GEO" };
};
