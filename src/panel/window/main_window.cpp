#include "panel/window/main_window.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <utility>
#include <vector>

#include "core/picture/state_sentences.h"
#include "panel/dialogs/common_dialog.h"
#include "panel/picture/space_time_surface.h"
#include "panel/widgets/choice_list.h"
#include "panel/widgets/frame_pacer.h"
#include "panel/widgets/panel_scroll_bar.h"
#include "panel/widgets/pictures.h"
#include "panel/widgets/spoken_role.h"
#include "panel/widgets/wrapping_button.h"
#include "panel/widgets/wrapping_label.h"
#include "panel/window/refusal_watch.h"
#include "panel/window/screen_fit.h"
#include "panel/window/side_windows.h"
#include "panel/window/start_up.h"

namespace {

// Every window of a process shows the same pictures: they are worked out once for each size.
QPixmap Shared(const QString& name, QImage (*picture)(const QSize& seen), const QSize& seen) {
    const QString key = QString("%1 %2 %3").arg(name).arg(seen.width()).arg(seen.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(picture(seen));
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

constexpr qint64 LongestUnfeltTick = 100;  // milliseconds

CaptionAlignment AlignmentOf(bool isCentred) {
    return isCentred ? CaptionAlignment::Centred : CaptionAlignment::Left;
}

}  // namespace

// The texts of the design come first and the handlers are connected afterwards: a text that the
// panel is made with is no edit.
frmTernlow::frmTernlow(const PanelScale& scale)
    : scale_(scale), shown_(scale), windowFactor_(scale.Factor()) {
    SpeakOfSurfacesAsPictures();
    controls.Refused = &lastRefusal_;
    setObjectName("frmTernlow");
    setWindowTitle(WindowTitle);
    setFixedSize(scale_.ToPixels(WindowTwips.width()), scale_.ToPixels(WindowTwips.height()));

    MakeButtons();
    MakeTextBoxes();
    MakeLabels();
    MakeSurfaces();
    MakeScrollBars();
    MakeListBox();
    MakeTimerAndDialog();
    SetTabOrder();
    StackControls();
    LayOut();

    WatchRefusals(*this, state, controls);
    ConnectPresses();
    ConnectBoxes();
    ConnectKeys();
    ConnectTimer();
    new FramePacer(*this);  // owned by the window
    sideWindows_ = std::make_unique<SideWindows>(*this);
}

frmTernlow::~frmTernlow() = default;

QFont frmTernlow::FontOf(const PanelFont& font) const {
    QFont made("Liberation Sans");
    made.setPixelSize(shown_.FontPixels(font.Pixels));
    made.setBold(font.Bold);
    return made;
}

template <typename Row>
void frmTernlow::Dress(QWidget& control, const Row& row, const QString& spokenName) const {
    control.setObjectName(row.Name);
    control.setAccessibleName(spokenName.simplified());
}

void frmTernlow::MakeButtons() {
    for (const ButtonRow& row : Buttons) {
        auto* button = new WrappingButton(row.Caption, this);
        Dress(*button, row, row.Caption);
        button->setToolTip(row.ToolTip);
        button->setAutoDefault(true);  // Enter presses the button that has the focus
        if (row.Face != Plain) button->ShowFace(QColor(row.Face));
        controls.*row.Control = button;
    }
}

void frmTernlow::MakeTextBoxes() {
    for (const TextBoxRow& row : TextBoxes) {
        auto* box = new QLineEdit(row.Text, this);
        Dress(*box, row, row.SpokenName);
        box->setToolTip(row.ToolTip);
        box->setAlignment(row.IsCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        controls.*row.Control = box;
    }
}

void frmTernlow::MakeLabels() {
    for (const LabelRow& row : Labels) {
        auto* label = new WrappingLabel(row.Caption, AlignmentOf(row.IsCentred), row.IsBoxed, this);
        Dress(*label, row, row.Caption);
        label->setToolTip(row.ToolTip);
        QPalette colours = label->palette();
        colours.setColor(QPalette::WindowText, QColor(row.Text));
        colours.setColor(QPalette::Window, QColor(row.Back));
        label->setPalette(colours);
        label->setAutoFillBackground(row.Back != Transparent);
        controls.*row.Control = label;
    }
}

void frmTernlow::MakeSurfaces() {
    for (const SurfaceRow& row : Surfaces) {
        auto* surface = row.IsInTwips ? new Surface(scale_, scale_.TwipsPerPixel(), this)
                                      : new SpaceTimeSurface(scale_, 1.0, this);
        Dress(*surface, row, row.SpokenName);
        surface->setAccessibleDescription(row.SpokenDescription);
        surface->setToolTip(row.ToolTip);
        surface->Place(row.Twips);
        controls.*row.Control = surface;
    }
}

void frmTernlow::MakeScrollBars() {
    for (const ScrollBarRow& row : ScrollBars) {
        auto* bar = new PanelScrollBar(row.Orientation, this);
        Dress(*bar, row, row.SpokenName);
        controls.*row.Control = bar;
    }
}

void frmTernlow::MakeListBox() {
    const ListBoxRow& row = GrayVariables;
    auto* list = new ChoiceList(this);
    Dress(*list, row, row.SpokenName);
    list->setToolTip(row.ToolTip);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    for (const char* text : row.Texts) list->addItem(text);
    controls.*row.Control = list;
}

void frmTernlow::MakeTimerAndDialog() {
    auto* timer = new QTimer(this);
    timer->setObjectName(Metronome.Name);
    timer->setTimerType(Qt::PreciseTimer);
    timer->start(Metronome.Milliseconds);
    controls.*Metronome.Control = timer;

    auto* dialog = new CommonDialog(controls, this);
    dialog->setObjectName(FileDialog.Name);
    controls.*FileDialog.Control = dialog;
}

// Places and fonts at the scale that the panel is shown at.
void frmTernlow::LayOut() {
    const QSize panel(shown_.ToPixels(WindowTwips.width()), shown_.ToPixels(WindowTwips.height()));
    const auto magnified = [](const QPixmap& picture, const QSize& size) {
        return picture.size() == size
                   ? picture
                   : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QSize drawn(scale_.ToPixels(WindowTwips.width()), scale_.ToPixels(WindowTwips.height()));
    background_ = magnified(Shared("background", BackgroundPicture, drawn), panel);
    for (const ButtonRow& row : Buttons) {
        auto* button = static_cast<WrappingButton*>(controls.*row.Control);
        button->setGeometry(shown_.ToPixels(row.Twips));
        button->setFont(FontOf(row.Font));
        const QSize still = scale_.ToPixels(row.Twips).size();
        if (row.HasStill) {
            button->ShowPicture(magnified(Shared("still", StillPicture, still), button->size()));
        }
    }
    for (const TextBoxRow& row : TextBoxes) {
        (controls.*row.Control)->setGeometry(shown_.ToPixels(row.Twips));
        (controls.*row.Control)->setFont(FontOf(TextBoxFont));
    }
    for (const LabelRow& row : Labels) {
        (controls.*row.Control)->setGeometry(shown_.ToPixels(row.Twips));
        (controls.*row.Control)->setFont(FontOf(row.Font));
    }
    for (const SurfaceRow& row : Surfaces) (controls.*row.Control)->MagnifyTo(shown_);
    for (const ScrollBarRow& row : ScrollBars) {
        (controls.*row.Control)->setGeometry(shown_.ToPixels(row.Twips));
    }
    LayOutList();
}

// One row fills the box.
void frmTernlow::LayOutList() {
    QListWidget& list = *controls.lstGrayVariable;
    list.setGeometry(shown_.ToPixels(GrayVariables.Twips));
    list.setFont(FontOf(GrayVariables.Font));
    for (int row = 0; row < list.count(); ++row) {
        list.item(row)->setSizeHint(QSize(0, list.contentsRect().height()));
    }
    if (list.currentItem() != nullptr) {
        list.scrollToItem(list.currentItem(), QAbstractItemView::PositionAtTop);
    }
}

void frmTernlow::ShowAt(const PanelScale& shown) {
    if (shown.Factor() == shown_.Factor() && shown.Corner() == shown_.Corner()) return;
    shown_ = shown;
    LayOut();
    update();
}

void frmTernlow::ShowInWindow(double factor) {
    windowFactor_ = factor;
    ShowAt(PanelScale(factor));
    setFixedSize(shown_.ToPixels(WindowTwips.width()), shown_.ToPixels(WindowTwips.height()));
}

void frmTernlow::Zoom(bool larger) {
    if (fillsScreen_) return;
    ShowInWindow(NextFactor(windowFactor_, larger, screen()->availableSize()));
}

void frmTernlow::ZoomBack() {
    if (fillsScreen_) ToggleFullScreen();
    ShowInWindow(scale_.Factor());
}

void frmTernlow::ToggleFullScreen() {
    fillsScreen_ = !fillsScreen_;
    if (!fillsScreen_) {
        showNormal();
        ShowInWindow(windowFactor_);
    } else {
        setMinimumSize(0, 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        showFullScreen();
    }
}

// On a full screen the panel stands in the middle, as large as fits.
void frmTernlow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!fillsScreen_) return;
    const double factor = FullScreenFactor(size());
    const PanelScale large(factor);
    ShowAt(PanelScale(factor, QPoint((width() - large.ToPixels(WindowTwips.width())) / 2,
                                     (height() - large.ToPixels(WindowTwips.height())) / 2)));
}

void frmTernlow::SetTabOrder() {
    std::vector<std::pair<int, QWidget*>> order;
    const auto add = [&](const auto& row) { order.emplace_back(row.Tab, controls.*row.Control); };
    std::for_each(Buttons.begin(), Buttons.end(), add);
    std::for_each(TextBoxes.begin(), TextBoxes.end(), add);
    std::for_each(Surfaces.begin(), Surfaces.end(), add);
    std::for_each(ScrollBars.begin(), ScrollBars.end(), add);
    add(GrayVariables);
    std::sort(order.begin(), order.end());
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1].second, order[i].second);
    }
    order.front().second->setFocus();
}

// Labels lie below everything else, or a plot's label would take the presses on the boxes beside
// it. Big, the space-time picture covers the plots, the bar between them and their captions, but
// not the boxes at the ends of their axes.
void frmTernlow::StackControls() {
    for (const LabelRow& row : Labels) (controls.*row.Control)->lower();
    controls.pctSpaceTime->raise();
    for (QLineEdit* box : {controls.txtDensityMin, controls.txtDensityMax, controls.txtPressureMin,
                           controls.txtPressureMax}) {
        box->raise();
    }
}

// A handler may change what is stored, from which the small picture of a run is still to be drawn.
// Only the tick, which adds states and changes none, leaves the drawing to the next paint.
template <typename... Arguments>
auto frmTernlow::Runs(void (*handler)(ExperimentState&, Controls&, Arguments...)) {
    return [this, handler](Arguments... arguments) {
        controls.pctSpaceTime->Settle();
        handler(state, controls, arguments...);
    };
}

void frmTernlow::ConnectPresses() {
    for (const ButtonRow& row : Buttons) {
        connect(controls.*row.Control, &QPushButton::clicked, this, Runs(row.Click));
    }
    for (const SurfaceRow& row : Surfaces) {
        Surface& surface = *(controls.*row.Control);
        surface.Pressed = Runs(row.MouseDown);
        if (row.KeyBar) surface.PassKeysTo(controls.*row.KeyBar);
        if (row.Click) surface.Clicked = Runs(row.Click);
        if (row.DblClick) surface.DoubleClicked = Runs(row.DblClick);
    }
}

void frmTernlow::ConnectBoxes() {
    for (const TextBoxRow& row : TextBoxes) {
        if (row.Change) {
            connect(controls.*row.Control, &QLineEdit::textChanged, this, Runs(row.Change));
        }
    }
    for (const ScrollBarRow& row : ScrollBars) {
        QScrollBar* bar = controls.*row.Control;
        connect(bar, &QScrollBar::valueChanged, this,
                [this, bar, &row] { Runs(bar->isSliderDown() ? row.Scroll : row.Change)(); });
    }
    connect(controls.hsbMSelected, &QScrollBar::valueChanged, this, &frmTernlow::SpeakOfCell);
    auto* list = static_cast<ChoiceList*>(controls.*GrayVariables.Control);
    list->Chosen = Runs(GrayVariables.Click);
}

// A held key presses once.
void frmTernlow::ConnectKeys() {
    for (const KeyRow& row : Keys) {
        auto* key = new QShortcut(QKeySequence(row.Keys), this);
        key->setAutoRepeat(false);
        connect(key, &QShortcut::activated, controls.*row.Control, &QPushButton::click);
    }
    const auto onKeys = [this](const char* keys, const auto& act) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, act);
    };
    for (const char* keys : {"Ctrl++", "Ctrl+="}) onKeys(keys, [this] { Zoom(true); });
    onKeys("Ctrl+-", [this] { Zoom(false); });
    onKeys("Ctrl+0", [this] { ZoomBack(); });
    onKeys("F11", [this] { ToggleFullScreen(); });
}

// The arrows in a plot go from cell to cell: a screen reader is told the cell and its values.
void frmTernlow::SpeakOfCell() {
    for (const SurfaceRow& row : Surfaces) {
        Surface& surface = *(controls.*row.Control);
        if (row.KeyBar == nullptr || !surface.hasFocus()) continue;
        surface.setAccessibleDescription(QString::fromStdString(CellSentence(state)));
    }
}

// Nothing but the tick may ever be connected to the metronome: what holds the tick blocks the
// timer's signals.
void frmTernlow::ConnectTimer() {
    connect(controls.*Metronome.Control, &QTimer::timeout, this, [this] {
        QElapsedTimer clock;
        clock.start();
        Metronome.Tick(state, controls);
        ShowWhetherPressesWait(state.Stopped == 0 && clock.elapsed() > LongestUnfeltTick);
    });
}

// A press waits for the end of the tick.
void frmTernlow::ShowWhetherPressesWait(bool wait) {
    const Qt::CursorShape shape = wait ? Qt::BusyCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape) setCursor(shape);
}

// Rectangle by rectangle: for the whole picture behind many small controls the toolkit would wake
// its threads.
void frmTernlow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (const QRect& rect : event->region()) {
        painter.setClipRect(rect.adjusted(-1, -1, 1, 1));  // whole at any scale of the screen
        if (fillsScreen_) painter.fillRect(rect, Qt::black);
        painter.drawPixmap(shown_.Corner(), background_);
    }
}

// Skips controls that the big picture covers: the focus would be invisible there.
bool frmTernlow::focusNextPrevChild(bool next) {
    const QWidget* const picture = controls.pctSpaceTime;
    const auto isCovered = [&] {
        const QWidget* const control = focusWidget();
        return control != picture && control != nullptr &&
               picture->geometry().contains(control->geometry());
    };
    do {
        if (!QWidget::focusNextPrevChild(next)) return false;
    } while (isCovered());
    return true;
}

// Nothing is saved and nobody is asked: a run in progress ends with the window.
void frmTernlow::closeEvent(QCloseEvent* /*event*/) {
    sideWindows_->Close();
    Form_Unload(state, controls);
}
