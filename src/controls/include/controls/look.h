#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QApplication;
class QWidget;

/// How every window of the program looks: an instrument on a bench with light bodies, dark displays
/// and white chart paper. Every colour that carries a state stands here and nowhere else.
namespace tqx::look {

/// @name Bodies of windows and the ink on them
/// @{
inline constexpr QRgb Body = 0xFFF2F3F5;
inline constexpr QRgb BodyInk = 0xFF262B31;
inline constexpr QRgb QuietInk = 0xFF5C6570;    ///< notes and units, 4.5:1 on Body
inline constexpr QRgb Rule = 0xFFD3D8DE;        ///< thin frames and rules
inline constexpr QRgb Field = 0xFFFFFFFF;       ///< entry boxes and lists
inline constexpr QRgb Accent = 0xFF2C67AE;      ///< focus, default button, progress
inline constexpr QRgb DarkRedInk = 0xFFC00000;  ///< refusals and warnings
inline constexpr QRgb GreenInk = 0xFF007A00;    ///< advice that goes with a choice, 4.5:1 on Body
inline constexpr QRgb DarkBlueInk = 0xFF000080; ///< addresses in the tool windows
/// @}

/// @name Displays and the ink on them
/// @{
inline constexpr QRgb Display = 0xFF12181D;
inline constexpr QRgb DisplayEdge = 0xFF2A343C;
inline constexpr QRgb DisplayInk = 0xFFF4F7F8;   ///< digits and captions
inline constexpr QRgb DisplayQuiet = 0xFF8A97A1; ///< placeholders, scales, headings
inline constexpr QRgb DisplayGreen = 0xFF9CF0A8; ///< read-outs
/// @}

/// @name The four colours of a row; the colour is the row's state
/// @{
inline constexpr QRgb RowPlain = 0xFFABABAB;
inline constexpr QRgb RowHovered = 0xFF00FF00;
inline constexpr QRgb RowSelected = 0xFFFFFF00;
inline constexpr QRgb RowSelectedAway = 0xFF008000;
/// @}

/// @name Marks of a block transfer's PEC
/// @{
inline constexpr QRgb PECUnknown = 0xFF808080;
inline constexpr QRgb PECGood = 0xFF00C000;
inline constexpr QRgb PECBad = 0xFFC00000;
/// @}

/// @name Buttons of the register console's bench tests: sent, or changed since
/// @{
inline constexpr QRgb BenchSent = 0xFF00FF00;
inline constexpr QRgb BenchChanged = 0xFFFF0000;
/// @}

/// @name Alarm lamps
/// @{
inline constexpr QRgb LampDark = 0xFF3A454D;
inline constexpr QRgb LampLit = 0xFFFF4D3D;
/// @}

/// @name Chart paper
/// @{
inline constexpr QRgb Paper = 0xFFFFFFFF;
inline constexpr QRgb PaperGrid = 0xFFE4E7EB;
inline constexpr QRgb PaperInk = 0xFF262B31;
/// @}

/// The unit of every distance in a window, in device-independent pixels.
inline constexpr int Grid = 4;

/// The sizes of text, in points. There are no others: each size of a face costs time at its first
/// use, and a window with few of them reads better.
enum class Size {
    Fine = 8,     ///< scales, legends in narrow columns
    Note = 9,     ///< notes, legends
    Text = 10,    ///< everything that has no reason to be else
    Section = 11, ///< headings within a window, rows, choices
    Large = 12,   ///< bytes to type or to compare
    Title = 15,   ///< heading of a window or of a page
    Digits = 20,  ///< one bit, one reading
    Banner = 24,  ///< the program's name
    ReadOut = 30, ///< the value just read
};

/// The one weight of what stands out.
inline constexpr QFont::Weight Strong = QFont::DemiBold;

/// The face for words.
QFont WordsFont(Size size = Size::Text, QFont::Weight weight = QFont::Normal);

/// The fixed-width face for every number, register caption and byte.
QFont NumbersFont(Size size = Size::Text, QFont::Weight weight = QFont::Normal);

/// The palette of a dark display.
QPalette DisplayPalette();

/// Makes `widget` a dark display that its children inherit.
void MakeDisplay(QWidget& widget);

/// Gives `widget`'s text the colour `ink`, and leaves the rest of its palette alone.
void SetInk(QWidget& widget, QRgb ink);

/// Gives the whole application its style, palette and face. Called once, before any window.
void Apply(QApplication& application);

} // namespace tqx::look
