#pragma once

#include "data/layout_backdrop.h"

#include <QObject>
#include <QTimer>
#include <memory>

/// Reads what lies under the mesh beside the window's own work, so that neither a large file nor a network drive that is gone
/// holds it up. A load that is no longer wanted is told to stop and forgotten.
class BackdropLoader : public QObject {
    Q_OBJECT

public:
    explicit BackdropLoader(QObject * parent = nullptr);
    ~BackdropLoader() override;

    /// Starts shortly, unless the same sources have been read or are being read; a name that is being typed settles in between.
    /// True when they are new.
    bool load(const BackdropSources & sources);
    /// The files may have changed: the next load reads them again.
    void forget() { loaded_.reset(); }
    void stop();
    bool is_loading() const { return work_ != nullptr || settling_.isActive(); }

signals:
    void progressed(const QString & words, int percent);
    /// messages: what could not be read, empty when all could. Work that was stopped gives what had been
    /// read by then.
    void finished(std::shared_ptr<const LayoutBackdrop> backdrop, const QString & messages);

private:
    struct Work;
    class Reporter;
    class Collector;

    static void run(const std::shared_ptr<Work> & work);
    void begin();
    void look();

    std::shared_ptr<Work> work_;
    BackdropSources wanted_;
    std::optional<BackdropSources> loaded_; ///< or being read
    QTimer settling_, timer_;
};
