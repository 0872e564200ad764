#include "panel/window/main_window.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <utility>
#include <vector>

#include "panel/dialogs/common_dialog.h"
#include "panel/picture/space_time_surface.h"
#include "panel/widgets/choice_list.h"
#include "panel/widgets/frame_pacer.h"
#include "panel/widgets/panel_scroll_bar.h"
#include "panel/widgets/pictures.h"
#include "panel/widgets/spoken_role.h"
#include "panel/widgets/wrapping_button.h"
#include "panel/widgets/wrapping_label.h"
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
frmTernlow::frmTernlow(const PanelScale& scale) : scale_(scale) {
    SpeakOfSurfacesAsPictures();
    setObjectName("frmTernlow");
    setWindowTitle(WindowTitle);
    setFixedSize(scale_.ToPixels(WindowTwips.width()), scale_.ToPixels(WindowTwips.height()));
    background_ = Shared("background", BackgroundPicture, size());

    MakeButtons();
    MakeTextBoxes();
    MakeLabels();
    MakeSurfaces();
    MakeScrollBars();
    MakeListBox();
    MakeTimerAndDialog();
    SetTabOrder();
    StackControls();

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
    made.setPixelSize(scale_.FontPixels(font.Pixels));
    made.setBold(font.Bold);
    return made;
}

template <typename Row>
void frmTernlow::Dress(QWidget& control, const Row& row, const QString& spokenName) const {
    control.setObjectName(row.Name);
    control.setGeometry(scale_.ToPixels(row.Twips));
    control.setAccessibleName(spokenName.simplified());
}

void frmTernlow::MakeButtons() {
    for (const ButtonRow& row : Buttons) {
        auto* button = new WrappingButton(row.Caption, this);
        Dress(*button, row, row.Caption);
        button->setToolTip(row.ToolTip);
        button->setFont(FontOf(row.Font));
        button->setAutoDefault(true);  // Enter presses the button that has the focus
        if (row.Face != Plain) button->ShowFace(QColor(row.Face));
        if (row.HasStill) button->ShowPicture(Shared("still", StillPicture, button->size()));
        controls.*row.Control = button;
    }
}

void frmTernlow::MakeTextBoxes() {
    for (const TextBoxRow& row : TextBoxes) {
        auto* box = new QLineEdit(row.Text, this);
        Dress(*box, row, row.SpokenName);
        box->setToolTip(row.ToolTip);
        box->setFont(FontOf(TextBoxFont));
        box->setAlignment(row.IsCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        controls.*row.Control = box;
    }
}

void frmTernlow::MakeLabels() {
    for (const LabelRow& row : Labels) {
        auto* label = new WrappingLabel(row.Caption, AlignmentOf(row.IsCentred), row.IsBoxed, this);
        Dress(*label, row, row.Caption);
        label->setToolTip(row.ToolTip);
        label->setFont(FontOf(row.Font));
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
    list->setFont(FontOf(row.Font));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    for (const char* text : row.Texts) {
        auto* item = new QListWidgetItem(text, list);
        item->setSizeHint(QSize(0, list->contentsRect().height()));  // one row fills the box
    }
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
        painter.drawPixmap(0, 0, background_);
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
