#include "panel/help/guide_window.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "panel/help/guide_place.h"

namespace {

constexpr QSize WantedSize(1060, 780);  // pixels; the widest picture and the contents beside it
constexpr int ContentsWidth = 250;
constexpr int ScreenShare = 94;  // per cent of the screen that the window takes at most

constexpr const char* NoGuide =
    "<h1>No guide</h1><p>The files of the guide have not been found beside the program or in "
    "/usr/share/ternlow/guide.</p>";

const QStringList& Pages() {
    static const QStringList pages = {"users-guide.html",  "experiments.html",
                                      "answers.html",      "schemes.html",
                                      "verification.html", "writing-a-scheme.html"};
    return pages;
}

QPushButton* MakeButton(const QString& caption, const QString& tip, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

GuideWindow::GuideWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), page_(new QTextBrowser(this)) {
    setObjectName("GuideWindow");
    setWindowTitle("Ternlow: the guide");
    page_->setAccessibleName("Page of the guide");
    page_->setOpenLinks(false);
    connect(page_, &QTextBrowser::anchorClicked, this, &GuideWindow::Follow);

    auto* halves = new QSplitter(this);
    halves->addWidget(MakeContents());
    halves->addWidget(page_);
    halves->setStretchFactor(1, 1);
    halves->setSizes({ContentsWidth, WantedSize.width() - ContentsWidth});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeTools());
    layout->addWidget(halves, 1);

    const QSize room = screen()->availableSize() * ScreenShare / 100;
    resize(WantedSize.boundedTo(room));
    page_->setFocus();
}

QTextBrowser* GuideWindow::MakeContents() {
    auto* contents = new QTextBrowser(this);
    contents->setAccessibleName("Contents of the guide");
    contents->setOpenLinks(false);
    contents->document()->setIndentWidth(14);
    const QString list = GuidePage("contents.html");
    if (!list.isEmpty()) contents->setSource(QUrl::fromLocalFile(list));
    connect(contents, &QTextBrowser::anchorClicked, this, &GuideWindow::Follow);
    return contents;
}

QWidget* GuideWindow::MakeTools() {
    auto* tools = new QWidget(this);
    auto* row = new QHBoxLayout(tools);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString& caption, const QString& tip, const QKeySequence& keys,
                         const auto& act) {
        auto* button = MakeButton(caption, tip + "  (" + keys.toString() + ")", tools);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, act);
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
        return button;
    };
    auto* back =
        add("Back", "The page before", QKeySequence("Alt+Left"), [this] { page_->backward(); });
    auto* forward =
        add("Forward", "The page after", QKeySequence("Alt+Right"), [this] { page_->forward(); });
    for (QPushButton* button : {back, forward}) button->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    add("A+", "Larger letters", QKeySequence("Ctrl++"), [this] { page_->zoomIn(); });
    add("A-", "Smaller letters", QKeySequence("Ctrl+-"), [this] { page_->zoomOut(); });
    add("Print", "Print this page", QKeySequence("Ctrl+P"), [this] { Print(); });
    row->addStretch(1);

    found_ = new QLabel(tools);
    found_->setTextFormat(Qt::PlainText);
    sought_ = new QLineEdit(tools);
    sought_->setPlaceholderText("Search the guide");
    sought_->setAccessibleName("Search the guide");
    sought_->setClearButtonEnabled(true);
    row->addWidget(found_);
    row->addWidget(sought_);
    connect(sought_, &QLineEdit::returnPressed, this, [this] { SearchOn(false); });
    add("Next", "Next place", QKeySequence("F3"), [this] { SearchOn(false); });
    add("Previous", "Place before", QKeySequence("Shift+F3"), [this] { SearchOn(true); });
    connect(new QShortcut(QKeySequence("Ctrl+F"), this), &QShortcut::activated, this, [this] {
        sought_->setFocus();
        sought_->selectAll();
    });
    connect(new QShortcut(QKeySequence("Esc"), this), &QShortcut::activated, this, &QWidget::hide);
    return tools;
}

void GuideWindow::ShowPage(const QString& page) {
    const QString file = GuidePage(page.section('#', 0, 0));
    if (file.isEmpty()) {
        page_->setHtml(NoGuide);
    } else {
        QUrl address = QUrl::fromLocalFile(file);
        address.setFragment(page.section('#', 1));
        show();  // a page that is not laid out yet does not go to its heading
        page_->setSource(address);
    }
    show();
    raise();
    activateWindow();
}

// A file that is no page, a set-up or an example, is shown as the text that it is.
void GuideWindow::Follow(const QUrl& link) {
    page_->setSource(page_->source().resolved(link));
}

void GuideWindow::SearchOn(bool backwards) {
    const bool found = sought_->text().isEmpty() || Search(sought_->text(), backwards);
    found_->setText(found ? QString() : "not in the guide");
}

bool GuideWindow::Search(const QString& text, bool backwards) {
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (page_->find(text, flags)) return true;
    const qsizetype count = Pages().size();
    const qsizetype here = std::max<qsizetype>(0, Pages().indexOf(page_->source().fileName()));
    for (qsizetype step = 1; step <= count; ++step) {
        const QString& name = Pages()[(here + (backwards ? count - step : step)) % count];
        const QString file = GuidePage(name);
        if (file.isEmpty()) continue;
        QTextDocument page;
        QFile content(file);
        if (!content.open(QIODevice::ReadOnly)) continue;
        page.setHtml(QString::fromUtf8(content.readAll()));
        if (page.find(text).isNull()) continue;
        page_->setSource(QUrl::fromLocalFile(file));
        page_->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
        return page_->find(text, flags);
    }
    return false;
}

void GuideWindow::Print() {
    QPrinter printer;
    printer.setDocName(page_->documentTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) page_->print(&printer);
}
