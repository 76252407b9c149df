#include "support/fault.h"

#include <system_error>

FileFault::FileFault(const std::string & doing, const std::string & path, int system_error)
    : FileFault(doing, path, std::generic_category().message(system_error))
{
}

FileFault::FileFault(const std::string & doing, const std::string & path, const std::string & reason)
    : Fault(doing + " " + path + ": " + reason)
{
}
