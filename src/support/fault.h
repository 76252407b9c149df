#pragma once

#include <stdexcept>
#include <string>

/// A run-time fault that no check could foresee; `what()` is a sentence a person can act on.
///
/// Thrown where it happens, caught by the general handler of the long procedure that it interrupts.
struct Fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A count, product or conversion left the range of its type.
struct OverflowFault : Fault {
    explicit OverflowFault(const std::string & what) : Fault(what) {}
};

/// A subscript outside its list.
struct SubscriptFault : Fault {
    explicit SubscriptFault(const std::string & what) : Fault(what) {}
};

/// A file or folder that could not be opened, read, written or closed: names the path and the system's reason.
struct FileFault : Fault {
    FileFault(const std::string & doing, const std::string & path, int system_error);
    FileFault(const std::string & doing, const std::string & path, const std::string & reason);
};

/// The user asked to stop; not a fault, so no handler shows a message for it.
struct Stopped {};
