#include <gtest/gtest.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <map>
#include <set>

#include "panel/dialogs/common_dialog.h"
#include "panel/widgets/caption_drawing.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/pictures.h"
#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"
#include "panel/window/screen_fit.h"
#include "pixels.h"

namespace {

constexpr std::size_t ControlCount = 69;

// The device pixels by which two pictures differ: what is in one and not in the other.
Pixels InkOf(const QImage& with, const QImage& without) {
    return PixelsWhere(with, [&](int x, int y) { return with.pixel(x, y) != without.pixel(x, y); });
}

template <typename Control>
Pixels CaptionInk(Control& control) {
    const QString caption = control.text();
    const QImage with = control.grab().toImage();
    control.setText(QString());
    const QImage without = control.grab().toImage();
    control.setText(caption);
    return InkOf(with, without);
}

// The ink of the caption with all the room in the world.
int FreeInkCount(const QString& caption, const QFont& font, double ratio) {
    const QSize room(2000, 200);
    QImage paper(room * ratio, QImage::Format_RGB32);
    paper.setDevicePixelRatio(ratio);
    paper.fill(Qt::white);
    const QImage blank = paper;
    QPainter painter(&paper);
    painter.setFont(font);
    DrawCaption(painter, QRect(QPoint(), room), caption, CaptionAlignment::Left);
    painter.end();
    return InkOf(paper, blank).Count;
}

// The whole caption is on the control: off its edges, and nothing of it is missing.
template <typename Control>
void ExpectReadable(Control& control, int edge) {
    const double ratio = control.devicePixelRatioF();
    const Pixels ink = CaptionInk(control);
    const QRectF inside = QRectF(control.rect().adjusted(edge, edge, -edge, -edge));
    const QRectF bounds(QPointF(ink.Bounds.topLeft()) / ratio, QSizeF(ink.Bounds.size()) / ratio);
    const QString what = control.objectName() + ": " + control.text();
    EXPECT_TRUE(inside.contains(bounds)) << qPrintable(what);
    // A font that has been shrunk to fit may lose a third of its ink.
    EXPECT_GE(ink.Count, 0.65 * FreeInkCount(control.text(), control.font(), ratio))
        << qPrintable(what);
}

}  // namespace

TEST(PanelLayout, MakesEveryControlAsItsRowSays) {
    // A pointer for each, and the place of the last refusal.
    static_assert(sizeof(Controls) == (ControlCount + 1) * sizeof(void*));
    const frmTernlow form;
    std::set<QString> names;
    const auto check = [&](const auto& row) {
        const QWidget* control = form.controls.*row.Control;
        names.insert(row.Name);
        EXPECT_EQ(form.findChild<QWidget*>(row.Name), control) << row.Name;
        EXPECT_TRUE(form.rect().contains(control->geometry())) << row.Name;
    };
    std::ranges::for_each(Buttons, check);
    std::ranges::for_each(TextBoxes, check);
    std::ranges::for_each(Labels, check);
    std::ranges::for_each(Surfaces, check);
    std::ranges::for_each(ScrollBars, check);
    check(GrayVariables);

    names.insert(form.controls.tmrMetronome->objectName());
    names.insert(form.controls.CommonDialog1->objectName());
    EXPECT_EQ(names.size(), ControlCount);
    EXPECT_TRUE(form.controls.tmrMetronome->isActive());
    EXPECT_EQ(form.controls.tmrMetronome->interval(), 10);
    EXPECT_EQ(form.size(), QSize(1000, 766));
}

// The rows themselves, by a sample of each kind.
TEST(PanelLayout, HasRowsThatSayWhatTheDesignSays) {
    const frmTernlow form;
    // clang-format off
    const struct {
        const char* name;
        QRect pixels;
        const char *text, *toolTip;
        int fontPixels;
    } rows[] = {
        {"cmdBegin", {896, 88, 81, 65}, "Begin", "Press to begin the calculation (from the beginning).", 18},
        {"cmdBoundaryConditionType", {476, 8, 41, 25}, "Bdrys", "Click here to clear the plotting windows.", 11},
        {"cmdNumericalScheme", {472, 704, 49, 41}, "  PPM?   Mflops?", "Click here to select the difference scheme.", 11},
        {"cmdDeselect", {321, 8, 74, 25}, "Deselect", "Press to deselect the present grid cell", 13},
        {"cmdTest5", {544, 704, 97, 41}, "Test 5", "Click here to set up for Test 5.", 24},
        {"txtNGridCells", {8, 8, 89, 25}, " 501", "enter the number of grid cells here", 13},
        {"txtPressure", {8, 104, 89, 25}, "1.0", "Enter the pressure of the selected grid cell here.", 13},
        {"txtTime", {464, 624, 89, 25}, " t = 0.0", "The time corresponding to the plots presently displayed appears in this window.", 13},
        {"txtVelocityMax", {360, 624, 89, 25}, " 1.0", "The maximum velocity value for the y-axis is shown here.", 13},
        {"lblNGridCells", {112, 8, 121, 25}, "N Grid Cells", "The number of mass points may not exceed 5000", 13},
        {"lblStoredState", {476, 104, 41, 25}, "Stored  State", "The stored state corresponding to the dump number in the box below is now displayed.", 11},
        {"lblVelocityPlot", {64, 624, 337, 25}, "Velocity", "The plot above shows the velocity distribution.", 19},
        {"pctPressurePlot", {528, 168, 453, 193}, "", "The plot of the pressure distribution appears in this window.", 0},
        {"hsbVelocity", {256, 136, 205, 25}, "", "", 0},
        {"vsbStoredStateNumber", {476, 168, 41, 441}, "", "", 0},
        {"lstGrayVariable", {568, 624, 161, 26}, "", "Select the variable to appear in the grayscale space-time display.", 19},
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto* control = form.findChild<QWidget*>(row.name);
        ASSERT_NE(control, nullptr) << row.name;
        EXPECT_EQ(control->geometry(), row.pixels) << row.name;
        EXPECT_EQ(control->toolTip(), row.toolTip) << row.name;
        EXPECT_EQ(control->property("text").toString(), row.text) << row.name;
        if (row.fontPixels != 0) {
            EXPECT_EQ(control->font().pixelSize(), row.fontPixels) << row.name;
        }
    }
    for (const LabelRow& row : Labels) {
        EXPECT_EQ((form.controls.*row.Control)->textFormat(), Qt::PlainText) << row.Name;
    }
    EXPECT_EQ(form.windowTitle(), "Morvane 1-D Eulerian Gamma-Law Gas Dynamics Experiment");
    EXPECT_EQ(form.controls.cmdContinue->palette().color(QPalette::Button), QColor(0, 0xC0, 0));
    EXPECT_EQ(form.controls.lblMSec->palette().color(QPalette::Window), QColor(0xC0, 0, 0));
    EXPECT_EQ(form.controls.lblMSec->palette().color(QPalette::WindowText), QColor(0, 0xFF, 0));
}

// What a screen reader says of every control, and nothing that has the focus sounds like another.
TEST(PanelLayout, TellsAScreenReaderWhatEveryControlIs) {
    const frmTernlow form;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(const_cast<frmTernlow*>(&form))->role(),
              QAccessible::Window);
    const std::map<QString, QAccessible::Role> roles = {
        {"cmd", QAccessible::Button},     {"txt", QAccessible::EditableText},
        {"lbl", QAccessible::StaticText}, {"pct", QAccessible::Graphic},
        {"hsb", QAccessible::ScrollBar},  {"vsb", QAccessible::ScrollBar},
        {"lst", QAccessible::List}};
    std::set<std::pair<int, QString>> spoken;
    std::size_t controls = 0;
    for (QWidget* control : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        SCOPED_TRACE(qPrintable(control->objectName()));
        const auto role = roles.find(control->objectName().left(3));
        ASSERT_TRUE(role != roles.end());
        ++controls;
        QAccessibleInterface* const said = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(said, nullptr);
        EXPECT_EQ(said->role(), role->second);
        const QString name = said->text(QAccessible::Name);
        EXPECT_FALSE(name.isEmpty());
        if (role->first != "lbl") {
            EXPECT_TRUE(spoken.emplace(said->role(), name).second) << qPrintable(name);
        }
        if (role->first == "pct") {
            EXPECT_GT(said->text(QAccessible::Description).size(), 80);
        }
        if (const auto* bar = dynamic_cast<QScrollBar*>(control)) {
            EXPECT_EQ(said->valueInterface()->currentValue().toInt(), bar->value());
            EXPECT_EQ(bar->orientation() == Qt::Horizontal, role->first == "hsb");
        }
    }
    EXPECT_EQ(controls, ControlCount - 2) << "the timer and the file dialog are no widgets";
}

TEST(PanelLayout, ShowsEveryCaptionWhole) {
    for (const double factor : {1.0, 0.9, 0.8355, 0.6}) {
        SCOPED_TRACE(factor);
        frmTernlow form{PanelScale(factor)};
        for (const ButtonRow& row : Buttons) ExpectReadable(*(form.controls.*row.Control), 2);
        for (const LabelRow& row : Labels) {
            // Shrunk, a caption may touch the edge of a label that draws none.
            const int edge = row.IsBoxed || factor == 1.0 ? 1 : 0;
            ExpectReadable(*(form.controls.*row.Control), edge);
        }
    }
}

TEST(PanelLayout, FitsTheScreenThatItOpensOn) {
    const struct {
        QSize Available;
        double Factor;
    } rows[] = {
        {{1920, 1040}, 1.0},
        {{1008, 806}, 1.0},            // room for the frame and not a pixel more
        {{1366, 728}, 688.0 / 766.0},  // a small notebook
        {{1280, 680}, 640.0 / 766.0},  // 1920 x 1080 at 150 per cent
        {{960, 500}, 460.0 / 766.0},   // and at 200
        {{600, 2000}, 592.0 / 1000.0},
        {{0, 0}, 0.25},
    };
    for (const auto& row : rows) {
        const double factor = FittingFactor(row.Available);
        EXPECT_DOUBLE_EQ(factor, row.Factor);
        const frmTernlow form{PanelScale(factor)};
        if (row.Available.isEmpty()) continue;
        EXPECT_LE(form.width() + 8, row.Available.width());
        EXPECT_LE(form.height() + 40, row.Available.height());
    }
}

TEST(PanelLayout, ShowsCaptionsWholeThatComeLater) {
    frmTernlow form;
    for (const char* name : {"Kestrel", "Kestrel32", "Heron32", "Plover", "<b>a&b</b>"}) {
        PutCaption(form.controls.cmdNumericalScheme, name);
        EXPECT_EQ(form.controls.cmdNumericalScheme->accessibleName(), name);
        EXPECT_TRUE(form.controls.cmdNumericalScheme->shortcut().isEmpty()) << name;
        ExpectReadable(*form.controls.cmdNumericalScheme, 2);
    }
    const std::string composed =
        "RhoL = 1.0,     PL = 1.0,     UxL = 0.75,     XJumpL = 0.3,     RhoM = 0.125,     "
        "UxM = 0.1234567,     Gamma = 1.4,       12/31/2026   11:59:59 PM\r\n"
        "RhoR = 0.1261192,     PR = 782.928907,     UxR = -1.870829,     XJumpR = 0.9,     "
        "PM = 0.1,     UyM = 0.0,     TStop = 0.2125   Jane Q. Student";
    PutCaption(form.controls.lblStudentID, composed);
    EXPECT_EQ(CaptionOf(form.controls.lblStudentID), composed);
    ExpectReadable(*form.controls.lblStudentID, 1);
}

TEST(PanelLayout, StacksTheBigPictureAboveThePlotsAndBelowTheirBoxes) {
    frmTernlow form;
    const Controls& controls = form.controls;
    controls.pctSpaceTime->Place(QRect(120, 2520, 14600, 6615));
    const auto atMiddleOf = [&](const QWidget* control) {
        return form.childAt(control->geometry().center());
    };
    for (const char* covered : {"pctDensityPlot", "pctPressurePlot", "pctVelocityPlot",
                                "lblDensityPlot", "vsbStoredStateNumber"}) {
        EXPECT_EQ(atMiddleOf(form.findChild<QWidget*>(covered)), controls.pctSpaceTime) << covered;
    }
    for (const QLineEdit* box : {controls.txtDensityMin, controls.txtDensityMax,
                                 controls.txtPressureMin, controls.txtPressureMax}) {
        EXPECT_EQ(atMiddleOf(box), box) << qPrintable(box->objectName());
    }
}

TEST(Pictures, ShowInPartWhatTheWholeShowsThere) {
    const QSize more(5000, 5000);
    EXPECT_EQ(BackgroundPicture({1000, 766}), BackgroundPicture(more).copy(0, 0, 1000, 766));
    EXPECT_EQ(StillPicture({97, 41}), StillPicture(more).copy(317, 256, 97, 41));
    EXPECT_EQ(StillPicture(more).size(), QSize(731, 553));
}

// Yellow captions keep a contrast of 4 and white ones of 8: relative luminance stays below 0.08.
TEST(Pictures, StayDarkBehindTheLabels) {
    const QImage picture = BackgroundPicture({1400, 1400});
    EXPECT_EQ(picture.size(), QSize(1400, 1400));
    const auto brighterThan = [&](double luminance) {
        const auto isBrighter = [&](int x, int y) {
            return Luminance(picture.pixelColor(x, y)) > luminance;
        };
        return PixelsWhere(picture, isBrighter).Count;
    };
    EXPECT_EQ(brighterThan(0.08), 0);
    EXPECT_GT(brighterThan(0.001), 0) << "there is something to see";
}

// As long as the prompt takes, and in letters that are shaped, joined or stacked.
TEST(PanelLayout, PaintsTheLongestTitleInATenthOfASecond) {
    frmTernlow form;
    QLabel& label = *form.controls.lblStudentID;
    for (const char* letter : {"i", "W ", "\n", "\u0628", "\u0915\u094d", "\u6f22", "a\u0301"}) {
        label.setText(QString(letter).repeated(32767).left(32767));
        label.grab();  // loads the fonts
        QElapsedTimer clock;
        clock.start();
        label.grab();
        EXPECT_LT(clock.elapsed(), 100) << letter;
    }
}
