// The guide in a window of its own.
#pragma once

#include <QTextBrowser>
#include <QWidget>

class QLineEdit;
class QLabel;
class QToolBar;

// Contents on the left, a page on the right; search, back and forward, larger and smaller letters,
// printing of the page that is shown. Reads nothing but the files of the guide.
class GuideWindow : public QWidget {
public:
    explicit GuideWindow(QWidget* parent = nullptr);

    // Shows a page, "users-guide.html#keys", and brings the window to the front.
    void ShowPage(const QString& page);

    // Goes to the next place (or the one before) where the searched text stands, on from page to
    // page and round to the first. False if it stands nowhere.
    bool Search(const QString& text, bool backwards = false);

    const QTextBrowser& Page() const { return *page_; }

private:
    QWidget* MakeTools();
    QTextBrowser* MakeContents();
    void Follow(const QUrl& link);
    void SearchOn(bool backwards);
    void Print();

    QTextBrowser* page_;
    QLineEdit* sought_;
    QLabel* found_;  // says that nothing was found
};
