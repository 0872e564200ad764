// The panel as a table: one row per control, one array per kind. Places are left, top, width and
// height in twips; colours are 0xRRGGBB; Tab is the place in the tab order.
#pragma once

#include <QRect>
#include <QRgb>
#include <array>

struct Controls;
struct ExperimentState;
class CommonDialog;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollBar;
class QTimer;
class Surface;

// What a control runs. Null where it runs nothing.
using Handler = void (*)(ExperimentState& state, Controls& controls);
using PressHandler = void (*)(ExperimentState& state, Controls& controls, float x, float y);

// Pixels at factor 1.
struct PanelFont {
    int Pixels;
    bool Bold;
};

struct ButtonRow {
    QPushButton* Controls::*Control;
    const char* Name;
    const char* Caption;
    QRect Twips;
    QRgb Face;
    bool HasStill;  // the face shows a picture
    PanelFont Font;
    int Tab;
    Handler Click;
    const char* ToolTip;
};

struct TextBoxRow {
    QLineEdit* Controls::*Control;
    const char* Name;
    const char* Text;
    QRect Twips;
    bool IsCentred;
    int Tab;
    Handler Change;
    const char* SpokenName;  // for screen readers, here and below
    const char* ToolTip;
};

struct LabelRow {
    QLabel* Controls::*Control;
    const char* Name;
    const char* Caption;
    QRect Twips;
    QRgb Back;
    bool IsBoxed;  // has a thin border
    QRgb Text;
    PanelFont Font;
    bool IsCentred;
    int Tab;
    const char* ToolTip;
};

struct SurfaceRow {
    Surface* Controls::*Control;
    const char* Name;
    QRect Twips;
    bool IsInTwips;  // the unit of its coordinates; else pixels
    int Tab;
    PressHandler MouseDown;
    Handler Click;
    Handler DblClick;
    QScrollBar* Controls::*
        KeyBar;  // is given the keys that the surface has no use for; may be null
    const char* SpokenName;
    const char* SpokenDescription;
    const char* ToolTip;
};

struct ScrollBarRow {
    QScrollBar* Controls::*Control;
    const char* Name;
    QRect Twips;
    Qt::Orientation Orientation;
    int Tab;
    Handler Change;
    Handler Scroll;  // in place of Change while the thumb is dragged
    const char* SpokenName;
};

struct ListBoxRow {
    QListWidget* Controls::*Control;
    const char* Name;
    std::array<const char*, 8> Texts;
    QRect Twips;
    PanelFont Font;
    int Tab;
    Handler Click;
    const char* SpokenName;
    const char* ToolTip;
};

// A key that presses a button, so that every lock of the button holds for it.
struct KeyRow {
    const char* Keys;
    QPushButton* Controls::*Control;
};

struct TimerRow {
    QTimer* Controls::*Control;
    const char* Name;
    int Milliseconds;
    Handler Tick;
};

struct DialogRow {
    CommonDialog* Controls::*Control;
    const char* Name;
};

constexpr QRgb Plain = 0;        // a button of the toolkit's own face
constexpr QRgb Transparent = 0;  // a label that shows what is behind it

constexpr const char* WindowTitle = "Morvane 1-D Eulerian Gamma-Law Gas Dynamics Experiment";
constexpr QSize WindowTwips(15000, 11490);
constexpr PanelFont TextBoxFont = {13, true};

extern const std::array<ButtonRow, 25> Buttons;
extern const std::array<TextBoxRow, 17> TextBoxes;
extern const std::array<LabelRow, 15> Labels;
extern const std::array<SurfaceRow, 4> Surfaces;
extern const std::array<ScrollBarRow, 5> ScrollBars;
extern const ListBoxRow GrayVariables;
extern const std::array<KeyRow, 14> Keys;
extern const TimerRow Metronome;
extern const DialogRow FileDialog;
