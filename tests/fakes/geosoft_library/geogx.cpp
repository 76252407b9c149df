// A stand-in for the library that reads databases: three lines of one survey, whatever the file. "no.gdb" cannot be opened, and
// in "bad.gdb" a block of the last line cannot be read. It knows one session, 71, and one database, 5.

#include "fakes/given_survey.h"

#include <algorithm>
#include <cstring>

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C"
#endif

namespace {

using Number = std::int32_t;

GivenDatabase database;
std::map<Number, std::vector<std::string>> lists;
std::map<Number, std::vector<ChannelValues>> values; // by element
Number last_handle = 100;
Number open_databases = 0;
bool is_bad = false;

/// With a NUL where there is room.
Number fill(char * buffer, Number size, const std::string & text)
{
    std::memcpy(buffer, text.c_str(), std::min(text.size() + 1, static_cast<std::size_t>(size)));
    return 0;
}

bool has_ended(Number session, Number opened) { return session != 71 || opened != 5 || open_databases != 1; }
std::size_t at(Number position) { return static_cast<std::size_t>(position); }
const ChannelValues & first(Number vector) { return values.at(vector).at(0); }
GivenChannel & channel(Number symbol) { return database.survey.channels.at(at(symbol) - 1); }

}

/// Databases, lists, vectors, arrays and locks that are still there.
EXPORTED Number things_left()
{
    return open_databases + static_cast<Number>(lists.size() + values.size() + database.locks.size());
}

EXPORTED Number Std_iCanOpen_DB(Number session, const char * file, const char * user, const char * password)
{
    return session == 71 && std::strcmp(user, "OWNER") == 0 && *password == 0 && std::strstr(file, "no.gdb") == nullptr;
}
EXPORTED Number Std_Open_DB(Number, const char * file, const char *, const char *)
{
    is_bad = std::strstr(file, "bad.gdb") != nullptr;
    ++open_databases;
    return 5;
}
EXPORTED Number Std_Destroy_DB(Number, Number) { return --open_databases; }

EXPORTED Number Std_Create_LST(Number, Number width)
{
    if (width == 512) lists[++last_handle];
    return last_handle;
}
EXPORTED Number Std_SymbLST_DB(Number session, Number opened, Number list, Number symbols)
{
    if (has_ended(session, opened)) return 1;
    if (symbols == 1) lists.at(list) = database.survey.lines;
    for (const GivenChannel & given : database.survey.channels)
        if (symbols == 2) lists.at(list).push_back(given.name);
    return 0;
}
EXPORTED Number Std_iSize_LST(Number, Number list) { return static_cast<Number>(lists.at(list).size()); }
EXPORTED Number Std_GtItem_LST(Number, Number list, Number, Number position, char * buffer, Number size)
{
    return fill(buffer, size, lists.at(list).at(at(position)));
}
EXPORTED Number Std_iGetInt_LST(Number, Number, Number, Number position) { return position + 1; }
EXPORTED Number Std_Destroy_LST(Number, Number list) { return lists.erase(list) == 1 ? 0 : 1; }

EXPORTED Number Std_FindSymb_DB(Number, Number, const char * name, Number) { return database.find_channel(name); }
EXPORTED Number Std_FindChan_DB(Number, Number, const char * name) { return database.find_channel(name); }
EXPORTED Number Std_LockSymb_DB(Number, Number, Number symbol) { return database.lock(symbol), 0; }
EXPORTED Number Std_UnLockSymb_DB(Number, Number, Number symbol) { return database.unlock(symbol), 0; }
EXPORTED Number Std_iGetChanType_DB(Number, Number, Number symbol) { return channel(symbol).type; }
EXPORTED Number Std_iGetChanArraySize_DB(Number, Number, Number symbol)
{
    return static_cast<Number>(channel(symbol).values.at(0).size());
}
EXPORTED Number Std_iGetColVA_DB(Number, Number, Number symbol) { return Std_iGetChanArraySize_DB(0, 0, symbol); }

EXPORTED Number Std_CreateExt_VV(Number, Number type, Number)
{
    values[++last_handle] = { { type, {}, {}, {} } };
    return last_handle;
}
EXPORTED Number Std_CreateExt_VA(Number, Number type, Number, Number) { return Std_CreateExt_VV(0, type, 0); }
EXPORTED Number Std_Destroy_VV(Number, Number vector) { return values.erase(vector) == 1 ? 0 : 1; }

EXPORTED Number Std_GetChanVA_DB(Number session, Number opened, Number line, Number symbol, Number array)
{
    if (has_ended(session, opened) || database.locks[symbol] != 1) return 1;
    if (is_bad && channel(symbol).name == "Base" && line == 3) return 1;
    values.at(array) = channel(symbol).values.at(at(line) - 1);
    return 0;
}
EXPORTED Number Std_GetChanVV_DB(Number session, Number opened, Number line, Number symbol, Number vector)
{
    return Std_GetChanVA_DB(session, opened, line, symbol, vector);
}
EXPORTED Number Std_GetVV_VA(Number, Number array, Number element, Number vector)
{
    values.at(vector) = { values.at(array).at(at(element)) };
    return 0;
}
EXPORTED Number Std_iLength_VV(Number, Number vector) { return static_cast<Number>(first(vector).count()); }
EXPORTED double Std_rGetReal_VV(Number, Number vector, Number row) { return first(vector).reals.at(at(row)); }
EXPORTED Number Std_iGetInt_VV(Number, Number vector, Number row) { return first(vector).integers.at(at(row)); }
EXPORTED Number Std_IGetString_VV(Number, Number vector, Number row, char * buffer, Number size)
{
    return fill(buffer, size, first(vector).texts.at(at(row)));
}

EXPORTED Number Std_sGetError_GEO(Number, char * module, Number module_size, char * description, Number description_size)
{
    fill(module, module_size, " DB ");
    fill(description, description_size, "not readable ");
    return 12;
}
