#include "desktop/check_list.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QSyntaxHighlighter>
#include <QVBoxLayout>

namespace {

class Headings : public QSyntaxHighlighter {
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

private:
    void highlightBlock(const QString & text) override
    {
        if (!CheckList::is_heading(text)) return;
        QTextCharFormat format;
        format.setFontWeight(QFont::Bold);
        setFormat(0, static_cast<int>(text.size()), format);
    }
};

}

CheckList::CheckList(QWidget * parent) : QDialog(parent, Qt::Dialog), close_(new QPushButton(this))
{
    setObjectName(QStringLiteral("Frame_checklist"));
    setWindowTitle(tr("Inversion check list"));
    auto * const text = new QPlainTextEdit;
    text->setObjectName(QStringLiteral("RichTextBox_checklist"));
    text->setReadOnly(true);
    text->setFrameShape(QFrame::NoFrame);
    text->document()->setDocumentMargin(12);
    new Headings(text->document());
    close_->setObjectName(QStringLiteral("Command_close_checklist"));
    auto * const layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(close_, 0, Qt::AlignRight);
    resize(860, 540);
}

bool CheckList::is_heading(const QString & line) { return !line.isEmpty() && !line.front().isDigit(); }

void CheckList::reject() { close_->click(); }
