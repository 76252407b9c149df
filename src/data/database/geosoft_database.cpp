#include "data/database/geosoft_database.h"

#include "data/database/geosoft_library.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>
#include <exception>
#include <map>

namespace {

using Handle = GeosoftHandle;

constexpr const char * client_name = "ZEB_QVinv3d_setup";
constexpr const char * client_version = "V1.0";
constexpr const char * user_name = "OWNER";
constexpr const char * password = "";

constexpr const char * line_number_field = "LineNumber";
constexpr std::int32_t list_width = 512;
constexpr std::int32_t text_size = 255;
constexpr std::int32_t line_symbols = 1, channel_symbols = 2;
constexpr std::int32_t list_names = 0, list_handles = 1;

/// The one session of the process.
struct Session {
    GeosoftOperations operations;
    Handle handle = operations.create_session(client_name, client_version);
};

/// Fails with a `Fault` where there is no library or it gives no session.
const Session & start_session()
{
    static std::unique_ptr<const Session> session;
    if (session == nullptr) {
        auto started = std::make_unique<const Session>();
        if (started->handle == 0) throw Fault("the library gives no session");
        session = std::move(started);
    }
    return *session;
}

const Session * start_session(const std::string & path, Host & host)
{
    try {
        return &start_session();
    } catch (const std::exception & fault) {
        host.dialogs.message(
            "Unable to start OASIS object. Please ensure that the OASIS API directory is in your path. Or export the "
            "lines to a .xyz or .csv point file, and choose that in place of " +
            path + " (" + fault.what() + ")");
        return nullptr;
    }
}

/// The vendor's words for what went wrong last.
std::string geosoft_error(const Session & session)
{
    std::string module(text_size, ' '), description(text_size, ' ');
    const std::int32_t number =
        session.operations.last_error(session.handle, module.data(), text_size, description.data(), text_size);
    return "Geosoft error: " + general_text(number) + " in module " + text_before_nul(module) + " description " +
           text_before_nul(description);
}

/// The names and handles of one kind of symbol.
class SymbolList {
public:
    SymbolList(const Session & session, Handle database, std::int32_t symbols, const std::string & path)
        : session_(session), call_(session.operations)
    {
        list_ = call_.create_list(session.handle, list_width);
        if (list_ != 0 && call_.list_symbols(session.handle, database, list_, symbols) == 0) return;
        const std::string reason = geosoft_error(session);
        destroy();
        throw Fault(path + ": its lines and channels cannot be listed. " + reason);
    }
    SymbolList(const SymbolList &) = delete;
    SymbolList & operator=(const SymbolList &) = delete;
    ~SymbolList() { destroy(); }

    std::int32_t size() const { return call_.list_size(session_.handle, list_); }

    std::string name(std::int32_t position) const
    {
        std::string name(text_size, ' ');
        call_.list_text(session_.handle, list_, list_names, position, name.data(), text_size);
        return text_before_nul(name);
    }

    Handle symbol(std::int32_t position) const { return call_.list_number(session_.handle, list_, list_handles, position); }

private:
    void destroy() const
    {
        if (list_ != 0) call_.destroy_list(session_.handle, list_);
    }

    const Session & session_;
    const GeosoftOperations & call_;
    Handle list_ = 0;
};

class GeosoftDatabase : public SurveyDatabase {
public:
    GeosoftDatabase(const Session & session, Handle database, const std::string & path, Host & host)
        : session_(session), call_(session.operations), database_(database), path_(path), host_(host)
    {
    }
    GeosoftDatabase(const GeosoftDatabase &) = delete;
    GeosoftDatabase & operator=(const GeosoftDatabase &) = delete;
    ~GeosoftDatabase() override
    {
        while (!held_.empty()) release(held_.begin());
        call_.close_database(session_.handle, database_);
        try {
            debug_write(host_.debug, host_.dialogs, false, "Close OASIS database " + general_text(database_));
        } catch (...) { // a log that cannot be written is no fault
        }
    }

    std::vector<DatabaseChannel> channels() override
    {
        std::vector<DatabaseChannel> channels = { { line_number_field, 1 } };
        const SymbolList list(session_, database_, channel_symbols, path_);
        for (std::int32_t i = 0; i < list.size(); ++i) channels.push_back({ list.name(i), elements_of(list.symbol(i)) });
        return channels;
    }

    std::int32_t find_channel(const std::string & name) override
    {
        if (call_.find_symbol(session_.handle, database_, name.c_str(), channel_symbols) <= 0) return 0;
        return std::max(call_.find_channel(session_.handle, database_, name.c_str()), 0);
    }

    void lock(std::int32_t symbol) override
    {
        check(call_.lock_symbol(session_.handle, database_, symbol), "a channel cannot be held");
        const auto held = held_.try_emplace(symbol).first;
        Channel & channel = held->second;
        channel.type = call_.channel_type(session_.handle, database_, symbol);
        const std::int32_t elements = elements_of(symbol);
        channel.is_array = elements > 1;
        channel.vector = call_.create_vector(session_.handle, channel.type, 0);
        if (channel.is_array) channel.array = call_.create_array(session_.handle, channel.type, 0, elements);
        if (channel.vector != 0 && (channel.array != 0 || !channel.is_array)) return;
        const std::string reason = geosoft_error(session_);
        release(held);
        throw Fault(path_ + ": there is no room for a channel. " + reason);
    }

    void unlock(std::int32_t symbol) override
    {
        const auto held = held_.find(symbol);
        if (held != held_.end()) release(held);
    }

    std::int32_t channel_type(std::int32_t symbol) override { return held_.at(symbol).type; }

    std::vector<DatabaseLine> lines() override
    {
        std::vector<DatabaseLine> lines;
        const SymbolList list(session_, database_, line_symbols, path_);
        lines.reserve(static_cast<std::size_t>(std::max(list.size(), 0)));
        for (std::int32_t i = 0; i < list.size(); ++i) lines.push_back({ list.name(i), list.symbol(i) });
        return lines;
    }

    void read_channel(const DatabaseLine & line, std::int32_t symbol, std::int32_t element, ChannelValues & values) override
    {
        const Channel & channel = fetch(line, symbol, element);
        const std::int32_t count = call_.vector_length(session_.handle, channel.vector);
        values = { channel.type, std::move(values.integers), std::move(values.reals), std::move(values.texts) };
        values.integers.clear();
        values.reals.clear();
        values.texts.clear();
        for (std::int32_t row = 0; row < count; ++row) append(channel, row, values);
    }

    std::size_t row_count(const DatabaseLine & line, std::int32_t symbol) override
    {
        return static_cast<std::size_t>(std::max(call_.vector_length(session_.handle, fetch(line, symbol, 0).vector), 0));
    }

private:
    /// A channel that is held, with room for its values on one line.
    struct Channel {
        std::int32_t type = 0;
        bool is_array = false;
        Handle vector = 0, array = 0;
        Handle line = 0; // whose values the array holds, 0 none
    };
    using HeldChannel = std::map<std::int32_t, Channel>::iterator;

    void release(HeldChannel held)
    {
        const auto & [symbol, channel] = *held;
        call_.unlock_symbol(session_.handle, database_, symbol);
        if (channel.vector != 0) call_.destroy_values(session_.handle, channel.vector);
        if (channel.array != 0) call_.destroy_values(session_.handle, channel.array);
        held_.erase(held);
    }

    void check(std::int32_t result, const std::string & trouble) const
    {
        if (result != 0) throw Fault(path_ + ": " + trouble + ". " + geosoft_error(session_));
    }

    std::int32_t elements_of(Handle symbol) const
    {
        if (call_.array_width(session_.handle, database_, symbol) <= 1) return 1;
        return call_.array_size(session_.handle, database_, symbol);
    }

    /// Puts the values of one channel, or of one of its elements, on a line into its vector.
    const Channel & fetch(const DatabaseLine & line, std::int32_t symbol, std::int32_t element)
    {
        Channel & channel = held_.at(symbol);
        const std::string trouble = "a channel cannot be read on line " + line.name;
        if (!channel.is_array) {
            check(call_.read_vector(session_.handle, database_, line.handle, symbol, channel.vector), trouble);
            return channel;
        }
        if (channel.line != line.handle) {
            channel.line = 0;
            check(call_.read_array(session_.handle, database_, line.handle, symbol, channel.array), trouble);
            channel.line = line.handle;
        }
        check(call_.take_element(session_.handle, channel.array, element, channel.vector), trouble);
        return channel;
    }

    void append(const Channel & channel, std::int32_t row, ChannelValues & values) const
    {
        if (channel.type > 3) {
            values.reals.push_back(call_.real_value(session_.handle, channel.vector, row));
        } else if (channel.type >= 0) {
            values.integers.push_back(call_.integer_value(session_.handle, channel.vector, row));
        } else {
            std::string text(static_cast<std::size_t>(-channel.type), ' ');
            call_.text_value(session_.handle, channel.vector, row, text.data(), -channel.type);
            values.texts.push_back(text_before_nul(text));
        }
    }

    const Session & session_;
    const GeosoftOperations & call_;
    Handle database_;
    std::string path_;
    Host & host_;
    std::map<std::int32_t, Channel> held_; // by symbol
};

}

std::unique_ptr<SurveyDatabase> open_geosoft_database(const std::string & path, Host & host)
{
    const Session * const session = start_session(path, host);
    if (session == nullptr) return nullptr;
    const GeosoftOperations & call = session->operations;
    const std::string file = host_path(path).string();
    const bool can_open = call.can_open_database(session->handle, file.c_str(), user_name, password) != 0;
    const Handle database = can_open ? call.open_database(session->handle, file.c_str(), user_name, password) : 0;
    if (database != 0) return std::make_unique<GeosoftDatabase>(*session, database, path, host);
    host.dialogs.message("The database could not be opened: " + path + ". " + geosoft_error(*session));
    return nullptr;
}
