#pragma once

#include <QDialog>

/// The list of what to look at before an inversion is run, as a window of its own: it is read beside the pages. Its text and its
/// button are controls of the form, which shows and hides it.
class CheckList : public QDialog {
    Q_OBJECT

public:
    explicit CheckList(QWidget * parent);

    /// The words without the numbers are headings.
    static bool is_heading(const QString & line);

private:
    /// Closed by other means, it closes by its button, so that the form knows.
    void reject() override;

    class QPushButton * close_;
};
