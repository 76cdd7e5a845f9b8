#include "controls/look.h"

#include <QApplication>
#include <QStyleFactory>
#include <QWidget>

namespace tqx::look {
namespace {

/// Only what the palette cannot say. Distances are multiples of Grid.
constexpr const char* StyleSheet = R"(
QGroupBox {
    border: 1px solid #D3D8DE;
    border-radius: 4px;
    margin-top: 10px;
    padding: 8px 4px 4px 4px;
    font-weight: 600;
}
QGroupBox::title {
    subcontrol-origin: margin;
    subcontrol-position: top left;
    left: 8px;
    padding: 0 4px;
}
QToolTip {
    color: #F4F7F8;
    background-color: #262B31;
    border: 1px solid #262B31;
    padding: 4px 8px;
}
)";

QPalette BodyPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(Body));
    palette.setColor(QPalette::WindowText, QColor(BodyInk));
    palette.setColor(QPalette::Base, QColor(Field));
    palette.setColor(QPalette::AlternateBase, QColor(0xFFF7F8FA));
    palette.setColor(QPalette::Text, QColor(BodyInk));
    palette.setColor(QPalette::PlaceholderText, QColor(QuietInk));
    palette.setColor(QPalette::Button, QColor(0xFFFAFBFC));
    palette.setColor(QPalette::ButtonText, QColor(BodyInk));
    palette.setColor(QPalette::BrightText, QColor(DarkRedInk));
    palette.setColor(QPalette::Highlight, QColor(Accent));
    palette.setColor(QPalette::HighlightedText, QColor(0xFFFFFFFF));
    palette.setColor(QPalette::Link, QColor(Accent));
    palette.setColor(QPalette::ToolTipBase, QColor(BodyInk));
    palette.setColor(QPalette::ToolTipText, QColor(DisplayInk));
    const QColor faded(0xFF8D959E);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faded);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xFFEBEDF0));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xFFB8C0C9));
    return palette;
}

QFont Face(const QStringList& families, Size size, QFont::Weight weight) {
    QFont font;
    font.setFamilies(families);
    font.setPointSize(static_cast<int>(size));
    font.setWeight(weight);
    return font;
}

} // namespace

QFont WordsFont(Size size, QFont::Weight weight) {
    return Face({"Inter", "Noto Sans", "DejaVu Sans"}, size, weight);
}

QFont NumbersFont(Size size, QFont::Weight weight) {
    QFont font = Face({"JetBrains Mono", "DejaVu Sans Mono"}, size, weight);
    font.setStyleHint(QFont::Monospace);
    return font;
}

QPalette DisplayPalette() {
    QPalette palette;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        palette.setColor(role, QColor(Display));
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(DisplayInk));
        palette.setColor(QPalette::Disabled, role, QColor(0xFF55626B));
    }
    palette.setColor(QPalette::Mid, QColor(DisplayEdge));
    palette.setColor(QPalette::PlaceholderText, QColor(DisplayQuiet));
    palette.setColor(QPalette::Highlight, QColor(Accent));
    palette.setColor(QPalette::HighlightedText, QColor(DisplayInk));
    return palette;
}

void MakeDisplay(QWidget& widget) {
    widget.setPalette(DisplayPalette());
    widget.setAutoFillBackground(true);
}

void SetInk(QWidget& widget, QRgb ink) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, QColor(ink));
    palette.setColor(QPalette::Text, QColor(ink));
    widget.setPalette(palette);
}

void Apply(QApplication& application) {
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(BodyPalette());
    application.setFont(WordsFont());
    application.setStyleSheet(StyleSheet);
}

} // namespace tqx::look
