#pragma once

#include <cstdint>
#include <string>

/// How long work tells of itself. Each call may let the user's events run and fails with `Stopped` once the user asked to stop.
class Progress {
public:
    virtual ~Progress() = default;

    /// A run starts or ends: the progress controls come and go.
    virtual void begin() = 0;
    virtual void end() = 0;
    /// A finished line for the log of steps.
    virtual void line(const std::string & text) = 0;
    /// The few words for the step under way.
    virtual void step(const std::string & text) = 0;
    /// 0 to 100; called when the whole number changes.
    virtual void percent(int percent) = 0;
};

/// For work that nobody watches.
class NoProgress : public Progress {
public:
    void begin() override {}
    void end() override {}
    void line(const std::string &) override {}
    void step(const std::string &) override {}
    void percent(int) override {}
};

/// Turns counts of work done into whole percents and reports each once: 100 * done / total, rounded, halves to even.
class Percentage {
public:
    Percentage(Progress & progress, std::int64_t total) : progress_(progress), total_(total) { progress_.percent(0); }

    /// done: how much of the total stands behind us. Cheap enough for every item.
    void report(std::int64_t done)
    {
        if (done >= next_) show(done);
    }

private:
    void show(std::int64_t done);

    Progress & progress_;
    std::int64_t total_;
    std::int64_t next_ = 1;
    int shown_ = 0;
};
