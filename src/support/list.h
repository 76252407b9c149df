#pragma once

#include "support/fault.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A list whose numbers run from 1 to size(), as they do in the files. Any other number is a `SubscriptFault`.
template <class T>
class List {
public:
    List() = default;
    explicit List(std::int64_t count, T value = T()) : items_(static_cast<std::size_t>(count), value) {}
    List(std::initializer_list<T> items) : items_(items) {}

    std::int32_t size() const { return static_cast<std::int32_t>(items_.size()); }
    bool empty() const { return items_.empty(); }
    void assign(std::int64_t count, T value = T()) { items_.assign(static_cast<std::size_t>(count), value); }
    void reserve(std::int64_t count) { items_.reserve(static_cast<std::size_t>(count)); }
    void push_back(T item) { items_.push_back(std::move(item)); }
    void append(std::span<const T> more) { items_.insert(items_.end(), more.begin(), more.end()); }
    void clear() { items_.clear(); }

    T & operator[](std::int64_t number) { return items_[place(number)]; }
    const T & operator[](std::int64_t number) const { return items_[place(number)]; }

    /// The items as plain memory counted from 0, for loops that are too hot for a check at each step.
    std::span<T> items() { return items_; }
    std::span<const T> items() const { return items_; }
    bool operator==(const List &) const = default;

private:
    std::size_t place(std::int64_t number) const
    {
        if (number < 1 || number > static_cast<std::int64_t>(items_.size()))
            throw SubscriptFault("number " + std::to_string(number) + " lies outside a list of " + std::to_string(items_.size()));
        return static_cast<std::size_t>(number - 1);
    }

    std::vector<T> items_;
};
