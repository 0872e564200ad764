#include "panel/dialogs/prompt.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "panel/dialogs/common_dialog.h"
#include "panel/dialogs/tick_hold.h"
#include "panel/window/main_window.h"

namespace {

// Does something with the modal box that opens next, from inside its event loop.
template <typename Box, typename Action>
void WhenOpen(Action action) {
    QTimer::singleShot(0, [action] {
        auto* box = dynamic_cast<Box*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        action(*box);
    });
}

// Types a file name into the dialog that opens next and presses its button.
void NameFile(const QString& path) {
    WhenOpen<QFileDialog>([path](QFileDialog& box) {
        auto* name = box.findChild<QLineEdit*>("fileNameEdit");
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

}  // namespace

TEST(Prompt, AsksInPlainTextNearTheCornerAndGivesTheAnswerAsTyped) {
    frmTernlow form;
    WhenOpen<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.labelText(), "Type <b>it</b>");
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
        EXPECT_EQ(box.pos(), box.screen()->geometry().topLeft() + QPoint(200, 200));
        QTest::keyClicks(box.findChild<QLineEdit*>(), " 0.25 ");
        box.accept();
    });
    EXPECT_EQ(Prompt(form.controls, "Type <b>it</b>", "Get difcon", "0.3"), " 0.25 ");
}

TEST(Prompt, KeepsTheButtonOfAMessageOnASmallScreen) {
    frmTernlow form;
    const std::string letters(5000, 'W');
    for (const std::string& text : {std::string(5000, '\n'), letters, letters + '\n' + letters}) {
        WhenOpen<QMessageBox>([](QMessageBox& box) {
            EXPECT_LT(box.height(), 600);
            EXPECT_TRUE(box.rect().contains(box.button(QMessageBox::Ok)->geometry()));
            box.accept();
        });
        ShowMessage(form.controls, text);
    }
}

TEST(Prompt, TakesEnterForOkAndEscapeForCancelWhichAnswersNothing) {
    frmTernlow form;
    for (const auto& [key, answer] : {std::pair(Qt::Key_Return, "0.3"), {Qt::Key_Escape, ""}}) {
        WhenOpen<QInputDialog>([key = key](QInputDialog& box) { QTest::keyClick(&box, key); });
        EXPECT_EQ(Prompt(form.controls, "Type it", "Get difcon", "0.3"), answer);
    }
}

TEST(Prompt, HoldsTheTicksWhileABoxIsOpen) {
    frmTernlow form;
    int ticks = 0;
    QObject::connect(form.controls.tmrMetronome, &QTimer::timeout, [&] { ++ticks; });
    form.controls.tmrMetronome->setInterval(1);
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        ticks = 0;
        QTest::qWait(30);
        EXPECT_EQ(ticks, 0);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    ShowMessage(form.controls, "one\r\ntwo");
    {
        const TickHold outer(form.controls);
        { const TickHold inner(form.controls); }
        QTest::qWait(30);
        EXPECT_EQ(ticks, 0) << "the outer hold still holds";
    }
    QTRY_VERIFY(ticks > 0);
}

TEST(CommonDialog, NamesFilesToWrite) {
    const QTemporaryDir folder;
    frmTernlow form;
    CommonDialog& dialog = *form.controls.CommonDialog1;
    const QString path = folder.filePath("shock");
    const struct {
        int filterIndex;
        QString typed, chosen;
    } rows[] = {{2, path, path + ".txt"}, {2, path + ".dat", path + ".dat"}, {1, path, path}};
    for (const auto& row : rows) {
        dialog.Filter = "All Files (*.*)|*.*|Text Files (*.txt)|*.txt";
        dialog.FilterIndex = row.filterIndex;
        NameFile(row.typed);
        dialog.Save();
        EXPECT_EQ(dialog.FileName, row.chosen);
    }
    WhenOpen<QFileDialog>([&](QFileDialog& box) {
        EXPECT_EQ(box.directory().path().toStdString(), folder.path().toStdString())
            << "where the user was last";
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    dialog.Save();
    EXPECT_EQ(dialog.FileName, "") << "cancelled";
}
