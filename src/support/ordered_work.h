#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

/// How many threads work at one task: as many as the machine runs at once, but few, as memory keeps up with no more.
inline unsigned working_threads() { return std::clamp(std::thread::hardware_concurrency(), 1U, 4U); }

namespace ordered_work {

/// Threads that work at blocks 0, 1, 2 and so on, never far ahead of the one whose result is waited for.
template <class Result, class Work>
class Workers {
public:
    Workers(std::size_t count, unsigned threads, const Work & work) : count_(count), work_(work), slots_(2 * threads)
    {
        try {
            for (unsigned i = 0; i < threads; ++i) threads_.emplace_back([this] { run(); });
        } catch (const std::system_error &) {
            // The system gives no more threads; those there are, or the caller alone, do the same work.
        }
    }
    ~Workers()
    {
        change([this] { ended_ = true; });
        for (std::thread & thread : threads_) thread.join();
    }
    Workers(const Workers &) = delete;
    Workers & operator=(const Workers &) = delete;

    bool none() const { return threads_.empty(); }

    /// The result of the next block, until `release`. Fails as the work on it failed.
    Result & next()
    {
        Slot & slot = slots_[released_ % slots_.size()];
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&slot] { return slot.ready; });
        if (slot.fault) std::rethrow_exception(slot.fault);
        return slot.result;
    }

    void release()
    {
        change([this] {
            slots_[released_ % slots_.size()].ready = false;
            ++released_;
        });
    }

private:
    struct Slot {
        Result result;
        std::exception_ptr fault;
        bool ready = false;
    };

    template <class Change>
    void change(Change change_state)
    {
        {
            const std::scoped_lock lock(mutex_);
            change_state();
        }
        changed_.notify_all();
    }

    void run()
    {
        for (std::size_t block = 0; begin(block);) {
            Slot & slot = slots_[block % slots_.size()];
            try {
                work_(block, slot.result);
            } catch (...) {
                slot.fault = std::current_exception();
            }
            change([&slot] { slot.ready = true; });
        }
    }

    /// Waits for a block to work at; false when there is none left.
    bool begin(std::size_t & block)
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return ended_ || begun_ == count_ || begun_ < released_ + slots_.size(); });
        if (ended_ || begun_ == count_) return false;
        block = begun_++;
        return true;
    }

    const std::size_t count_;
    const Work & work_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::size_t begun_ = 0, released_ = 0;
    bool ended_ = false;
    std::vector<Slot> slots_;
    std::vector<std::thread> threads_;
};

}

/// Works at blocks 0 to count - 1 in several threads, `work(block, result)`, and takes the results in their order in the calling
/// one, `take(block, result)`. With one thread, or one block, the calling thread does it all.
///
/// `work` must touch nothing but what belongs to its block, and blocks behind one that fails may have been worked at. It finds in
/// `result` what another block left there, so that lists keep their memory. Fails as the first block fails whose `work` or `take`
/// does.
template <class Result, class Work, class Take>
void work_in_order(std::size_t count, unsigned threads, const Work & work, const Take & take)
{
    if (threads > 1 && count > 1) {
        ordered_work::Workers<Result, Work> workers(count, threads, work);
        for (std::size_t block = 0; block < count && !workers.none(); ++block) {
            take(block, workers.next());
            workers.release();
        }
        if (!workers.none()) return;
    }
    Result result;
    for (std::size_t block = 0; block < count; ++block) {
        work(block, result);
        take(block, result);
    }
}
