#include "desktop/backdrop_loader.h"

#include "host/cancelled_dialogs.h"
#include "support/fault.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

/// Shared by the window and the thread; whoever leaves last takes it away.
struct BackdropLoader::Work {
    BackdropSources sources;
    LayoutBackdrop backdrop;
    std::string messages;
    std::string step; ///< under `mutex`, as it is read while the work goes on
    std::mutex mutex;
    std::atomic<int> percent = 0;
    std::atomic<bool> stop_asked = false;
    std::atomic<bool> done = false;
};

class BackdropLoader::Reporter : public Progress {
public:
    explicit Reporter(Work & work) : work_(work) {}

    void begin() override {}
    void end() override {}
    void line(const std::string &) override { check(); }
    void step(const std::string & text) override
    {
        const std::lock_guard lock(work_.mutex);
        work_.step = text;
        check();
    }
    void percent(int percent) override
    {
        work_.percent = percent;
        check();
    }

private:
    void check() const
    {
        if (work_.stop_asked) throw Stopped();
    }

    Work & work_;
};

/// Keeps messages for the end of the work: a box over the picture would stop the user for a decoration.
class BackdropLoader::Collector : public CancelledDialogs {
public:
    explicit Collector(std::string & messages) : messages_(messages) {}

    void message(const std::string & text) override { messages_ += (messages_.empty() ? "" : "\n") + text; }
    std::optional<PointTransform> define_transform(const PointTransform &) override { return std::nullopt; }

private:
    std::string & messages_;
};

namespace {

constexpr int look_every = 50, settle_time = 250; // milliseconds
constexpr auto patience = std::chrono::milliseconds(1000);

}

BackdropLoader::BackdropLoader(QObject * parent) : QObject(parent)
{
    settling_.setSingleShot(true);
    settling_.setInterval(settle_time);
    timer_.setInterval(look_every);
    connect(&settling_, &QTimer::timeout, this, &BackdropLoader::begin);
    connect(&timer_, &QTimer::timeout, this, &BackdropLoader::look);
}

BackdropLoader::~BackdropLoader()
{
    if (!work_) return;
    work_->stop_asked = true;
    const auto until = std::chrono::steady_clock::now() + patience;
    while (!work_->done && std::chrono::steady_clock::now() < until) std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

bool BackdropLoader::load(const BackdropSources & sources)
{
    if (loaded_ && same_backdrop(*loaded_, sources)) return false;
    if (work_) work_->stop_asked = true;
    loaded_ = wanted_ = sources;
    work_.reset();
    timer_.stop();
    settling_.start();
    return true;
}

void BackdropLoader::begin()
{
    settling_.stop();
    work_ = std::make_shared<Work>();
    work_->sources = wanted_;
    std::thread([work = work_] { run(work); }).detach(); // it may hang in a drive that is gone
    timer_.start();
}

void BackdropLoader::stop()
{
    if (settling_.isActive()) begin(); // to end in the same way
    if (work_) work_->stop_asked = true;
}

void BackdropLoader::run(const std::shared_ptr<Work> & work)
{
    Collector dialogs(work->messages);
    Reporter progress(*work);
    NoSettings settings;
    NoLauncher launcher;
    DebugLog debug;
    Host host = { dialogs, progress, settings, launcher, debug };
    try {
        read_backdrop(work->sources, work->backdrop, host);
    } catch (const Stopped &) {
        dialogs.message("Reading was stopped");
    } catch (const std::exception & fault) {
        dialogs.message(fault.what());
    }
    work->done = true;
}

void BackdropLoader::look()
{
    if (!work_) return;
    if (!work_->done) {
        std::unique_lock lock(work_->mutex);
        const QString step = QString::fromStdString(work_->step);
        lock.unlock();
        emit progressed(step, work_->percent);
        return;
    }
    timer_.stop();
    const auto work = std::move(work_);
    work_ = nullptr;
    emit finished(std::shared_ptr<const LayoutBackdrop>(work, &work->backdrop), QString::fromStdString(work->messages));
}
