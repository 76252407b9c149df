#pragma once

#include "definition/definition.h"

/// What the check found to be in use; the record itself does not say so.
struct InUse {
    bool rock_properties = false;
    bool reference = false;
    bool bounds = false;
    bool model_file = false; ///< a weighting file, reference or bounds: the own solver then runs without its fast form
};

/// A record that has passed `check_inversion_definitions`, which alone makes one. Only this is saved or created from.
class ValidatedDefinition {
public:
    const InversionDefinition * operator->() const { return &record_; }
    const InversionDefinition & operator*() const { return record_; }
    const InUse & in_use() const { return in_use_; }

private:
    friend struct DefinitionCheck; // rules/validation
    ValidatedDefinition(InversionDefinition record, InUse in_use) : record_(std::move(record)), in_use_(in_use) {}

    InversionDefinition record_;
    InUse in_use_;
};
