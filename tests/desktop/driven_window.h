#pragma once

#include "batch/batch_run.h"
#include "desktop/main_window.h"
#include "fakes/recorded_host.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <stdexcept>

using Texts = std::vector<std::string>;

/// Tells what has been said and asked since the last look.
struct AnsweringDialogs : RecordedDialogs {
    Texts said() { return std::exchange(messages, {}); }
    Texts asked() { return std::exchange(questions, {}); }
};

/// Waits for something that events bring about; long enough for a machine that is busy with other work.
inline bool comes_true(const std::function<bool()> & question) { return QTest::qWaitFor(question, 20000); }

/// Calls `step` from the event loop, whichever window's, until it says that it is done. A step that fails ends the dialogs too,
/// so that the test goes on.
inline void meanwhile(std::function<bool()> step)
{
    auto * const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, step = std::move(step)] {
        timer->stop();
        bool done = true;
        try {
            done = step();
        } catch (const std::exception & fault) {
            ADD_FAILURE() << fault.what();
            while (QWidget * const dialog = QApplication::activeModalWidget())
                if (!dialog->close()) break;
        }
        done ? timer->deleteLater() : timer->start(0);
    });
    timer->start(0);
}

/// Clicks where a widget stands in its window, so that what lies over it gets the click, as it would a user's.
inline void click(QWidget & widget, const QPoint & at)
{
    if (!widget.isVisible() || !widget.isEnabled())
        throw std::runtime_error("cannot be clicked: " + widget.objectName().toStdString());
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
}
inline void click(QWidget & widget) { click(widget, widget.rect().center()); }

/// Types a text in place of the one that stands in a box, and stays there.
inline void type_over(QWidget & box, const std::string & text)
{
    box.activateWindow(); // as the system does when a box over it has been closed
    static_cast<void>(comes_true([&box] { return box.isActiveWindow(); }));
    click(box);
    QWidget * const typed_in = QApplication::focusWidget();
    if (typed_in != &box) throw std::runtime_error("does not take the focus: " + box.objectName().toStdString());
    QTest::keyClick(typed_in, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(typed_in, Qt::Key_Delete);
    QTest::keyClicks(typed_in, QString::fromStdString(text));
}

/// The program's window with what a user does to it and sees of it. Works in a folder of its own. Controls go by the names of
/// their widgets; one that cannot be seen or pressed ends the test.
struct DrivenWindow {
    TemporaryFolder folder;
    std::string folder_before = current_folder();
    KeptSettings own_settings;
    RecordedLauncher launcher;
    AnsweringDialogs dialogs;
    MainWindow window;

    enum class Boxes { scripted, real };

    explicit DrivenWindow(SettingsStore * settings = nullptr, Boxes boxes = Boxes::scripted)
        : window((change_to_path(folder.path()), settings ? *settings : own_settings), launcher,
                 boxes == Boxes::scripted ? &dialogs : nullptr)
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window, 20000)) throw std::runtime_error("the window does not open");
    }
    ~DrivenWindow() { change_to_path(folder_before); }

    template <class Widget = QWidget>
    Widget & widget(const std::string & name)
    {
        const auto found = window.findChildren<Widget *>(QString::fromStdString(name));
        if (found.isEmpty()) throw std::runtime_error("no widget " + name);
        if constexpr (std::is_base_of_v<QWidget, Widget>) // one control may show in two places
            for (Widget * const widget : found)
                if (widget->isVisible()) return *widget;
        return *found.first();
    }
    /// Turns to the page that a widget stands on and scrolls to it.
    QWidget & in_sight(const std::string & name)
    {
        QWidget & shown = widget(name);
        auto & pages = widget<QTabWidget>("Tab_inversion");
        for (int page = 0; page < pages.count(); ++page) {
            if (!pages.widget(page)->isAncestorOf(&shown)) continue;
            if (pages.currentIndex() != page) click(*pages.tabBar(), pages.tabBar()->tabRect(page).center());
            qobject_cast<QScrollArea *>(pages.widget(page))->ensureWidgetVisible(&shown);
        }
        QApplication::processEvents(); // what the layout of the page has to catch up with
        return shown;
    }

    void type(const std::string & box, const std::string & text) { type_over(in_sight(box), text); }
    /// Types and leaves the box.
    void type_into(const std::string & box, const std::string & text)
    {
        type(box, text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    void choose_in(const std::string & list, int position)
    {
        auto & box = static_cast<QComboBox &>(in_sight(list));
        click(box);
        if (!comes_true([&box] { return box.view()->isVisible(); })) throw std::runtime_error("does not open: " + list);
        QTest::keyClick(box.view(), Qt::Key_Home);
        for (int i = 0; i < position; ++i) QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Return);
        if (box.count() > position) return;
        throw std::runtime_error("too short: " + list);
    }
    void press(const std::string & button) { click(in_sight(button)); }
    void choose_menu(const std::string & item)
    {
        auto & action = widget<QAction>(item);
        auto & menu = *qobject_cast<QMenu *>(action.parent());
        if (auto * const above = qobject_cast<QMenu *>(menu.parent())) {
            click(*window.menuBar(), window.menuBar()->actionGeometry(above->menuAction()).center());
            above->setActiveAction(menu.menuAction());
            QTest::keyClick(above, Qt::Key_Right);
        } else {
            click(*window.menuBar(), window.menuBar()->actionGeometry(menu.menuAction()).center());
        }
        if (!action.isVisible() || !action.isEnabled()) throw std::runtime_error("cannot be chosen: " + item);
        menu.setActiveAction(&action);
        QTest::keyClick(&menu, Qt::Key_Return);
    }

    std::string text(const std::string & box) { return widget<QLineEdit>(box).text().toStdString(); }
    std::string chosen(const std::string & list) { return widget<QComboBox>(list).currentText().toStdString(); }
    /// What the words at the foot of the window are.
    std::string words() { return window.statusBar()->currentMessage().toStdString(); }
    QPushButton & stop()
    {
        for (auto * const button : window.statusBar()->findChildren<QPushButton *>()) return *button;
        throw std::runtime_error("no Stop");
    }

    // The picture of the layout.

    /// Points at a place of it; gives what a panel says then.
    std::string panel_at(const QPoint & place, int panel)
    {
        QWidget & picture = widget("Picture_tiling_layout");
        QTest::mouseMove(picture.window()->windowHandle(), picture.mapTo(picture.window(), place));
        QApplication::processEvents();
        return widget<QLabel>("StatusBar_coords_" + std::to_string(panel)).text().toStdString();
    }
    /// The first place of which the last panel says `words`; null when there is none.
    QPoint place_of(const std::string & words)
    {
        QWidget & picture = widget("Picture_tiling_layout");
        for (int y = 6; y < picture.height(); y += 12)
            for (int x = 6; x < picture.width(); x += 12)
                if ((panel_at({ x, y }, 5) + " ").find(words) != std::string::npos) return { x, y };
        return {};
    }

    /// A copy of a file of the project, in the folder.
    void take(const std::string & file)
    {
        const std::filesystem::path from = std::filesystem::path(PROJECT_FOLDER) / file;
        folder.write(from.filename().string(), bytes_of(from));
    }
    void open_tiny()
    {
        for (const char * const file : { "tiny.inp", "data.csv", "ground.xyz" }) take(std::string("tests/batch/tiny/") + file);
        window.open_definition(folder.file("tiny.inp"));
    }
};

/// What differs between two folders: the names of the files.
inline FileNames differing(const Files & one, const Files & other)
{
    FileNames names;
    for (const auto & [from, to] : { std::pair(&one, &other), std::pair(&other, &one) })
        for (const auto & [name, bytes] : *from)
            if (!to->contains(name) || to->at(name) != bytes) names.insert(name);
    return names;
}
