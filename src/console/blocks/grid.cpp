#include "blocks/grid.h"

#include <controls/look.h>
#include <controls/number_text.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>

namespace tqx {
namespace {

constexpr int BandColumns = 16;
constexpr int KeyWidth = 26 * look::Grid;
constexpr int TallestBand = 44 * look::Grid;

/// The rows of a band, from above.
enum BandRow { NumberRow, ReadRow, FcsRow, WriteRow, BandRows };

/// A row's name, its ink, and its place among the domain's labels.
struct RowKey {
    const char* Text;
    QRgb Ink;
    int Index;
};

constexpr std::array<RowKey, BandRows> RowKeys{{
    {"Byte Number", look::DisplayQuiet, 1},
    {"Read Data", look::DisplayGreen, 0},
    {"PEC", look::DisplayInk, 2},
    {"Data to Write", look::DisplayInk, 3},
}};

QLabel* ByteLabel(const char* name, int column, BandRow row) {
    auto* label = new QLabel;
    label->setObjectName(QString("%1(%2)").arg(name).arg(column));
    label->setFont(look::NumbersFont(row == NumberRow ? look::Size::Note : look::Size::Large));
    label->setAlignment(Qt::AlignCenter);
    look::SetInk(*label, RowKeys[row].Ink);
    // A column that no byte belongs to fades.
    QPalette palette = label->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(look::DisplayEdge));
    label->setPalette(palette);
    return label;
}

/// The digits of one word of the text, without the marks that say "hexadecimal".
QString DigitsOf(QString word) {
    if (word.startsWith("0x", Qt::CaseInsensitive)) {
        word.remove(0, 2);
    } else if (word.endsWith('h', Qt::CaseInsensitive)) {
        word.chop(1);
    }
    return word;
}

/// Shows `text`, or that there is none, and names it for a screen reader.
void Show(QLabel& label, const QString& what, int column, const QString& text) {
    label.setText(text);
    label.setAccessibleName(QString("%1 %2: %3").arg(what).arg(column).arg(text));
}

} // namespace

std::optional<std::vector<std::uint8_t>> ParseHexBytes(const QString& text) {
    static const QRegularExpression between("[\\s,;:]+");
    static const QRegularExpression digitsOnly("^(?:[0-9A-Fa-f]|(?:[0-9A-Fa-f]{2})+)$");
    std::vector<std::uint8_t> bytes;
    for (const QString& word : text.split(between, Qt::SkipEmptyParts)) {
        const QString digits = DigitsOf(word);
        if (!digitsOnly.match(digits).hasMatch()) {
            return std::nullopt;
        }
        for (qsizetype at = 0; at < digits.size(); at += 2) {
            bytes.push_back(static_cast<std::uint8_t>(digits.mid(at, 2).toUInt(nullptr, 16)));
        }
    }
    return bytes;
}

QString FormatHexBytes(std::span<const std::uint8_t> bytes, int perLine) {
    QString text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i > 0) {
            text += i % static_cast<std::size_t>(perLine) == 0 ? '\n' : ' ';
        }
        text += QString("%1").arg(bytes[i], 2, 16, QChar('0')).toUpper();
    }
    return text;
}

BlockByteEntry::BlockByteEntry(QWidget* parent)
    : NumberEntry(Hexadecimal, parent) {}

void BlockByteEntry::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        PasteClipboard();
        return;
    }
    NumberEntry::keyPressEvent(event);
}

void BlockByteEntry::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* paste = menu->findChild<QAction*>("edit-paste")) {
        paste->disconnect();
        connect(paste, &QAction::triggered, this, &BlockByteEntry::PasteClipboard);
    }
    menu->popup(event->globalPos());
}

void BlockByteEntry::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    Q_EMIT Pasted(event->mimeData()->text());
}

void BlockByteEntry::PasteClipboard() {
    Q_EMIT Pasted(QGuiApplication::clipboard()->text());
}

BlockGrid::BlockGrid(QWidget* parent)
    : QWidget(parent) {
    auto* bands = new QVBoxLayout(this);
    bands->setContentsMargins(0, 0, 0, 0);
    bands->setSpacing(2 * look::Grid);
    bands->addWidget(MakeHeading());
    bands->setSizeConstraint(QLayout::SetMinAndMaxSize);
    bands->addWidget(MakeBand(1), 1);
    bands->addWidget(MakeBand(1 + BandColumns), 1);
    ClearReading();
    ClearPEC();
}

QWidget* BlockGrid::MakeHeading() {
    auto* heading = new QWidget(this);
    heading->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* key = new QLabel("Key");
    key->setFont(look::WordsFont(look::Size::Text, look::Strong));
    m_copy = new QPushButton("Copy Reading");
    m_copy->setObjectName("CopyReadingCMD");
    m_copy->setAutoDefault(false);
    m_copy->setMinimumWidth(m_copy->sizeHint().width() + 4 * look::Grid);
    m_copy->setToolTip("Copy the data read as hexadecimal text");
    connect(m_copy, &QPushButton::clicked, this, &BlockGrid::CopyReading);

    auto* line = new QHBoxLayout(heading);
    line->setContentsMargins(3 * look::Grid, 0, 0, 0);
    line->addWidget(key);
    line->addStretch(1);
    line->addWidget(m_copy);
    return heading;
}

QWidget* BlockGrid::MakeBand(int first) {
    auto* display = new QWidget(this);
    look::MakeDisplay(*display);
    display->setMaximumHeight(TallestBand);
    auto* band = new QGridLayout(display);
    band->setContentsMargins(3 * look::Grid, 2 * look::Grid, 2 * look::Grid, 2 * look::Grid);
    band->setHorizontalSpacing(look::Grid / 2);
    band->setVerticalSpacing(look::Grid);
    MakeKey(*band, first == 1);
    for (int i = 0; i < BandColumns; ++i) {
        MakeColumn(*band, first + i, i + 1);
    }
    return display;
}

void BlockGrid::MakeKey(QGridLayout& band, bool named) {
    band.setColumnMinimumWidth(0, KeyWidth);
    for (int row = 0; row < BandRows; ++row) {
        const RowKey& key = RowKeys[static_cast<std::size_t>(row)];
        auto* label = new QLabel(key.Text);
        if (named) {
            label->setObjectName(QString("Label4(%1)").arg(key.Index));
        }
        look::SetInk(*label, key.Ink);
        band.addWidget(label, row, 0);
    }
}

void BlockGrid::MakeColumn(QGridLayout& band, int column, int at) {
    Column& made = Of(column);
    made.Number = ByteLabel("DataByteLBL", column, NumberRow);
    made.Number->setNum(column);
    made.Read = ByteLabel("ReadDataLBL", column, ReadRow);
    made.Fcs = ByteLabel("FcsLBL", column, FcsRow);
    made.Write = new BlockByteEntry;
    made.Write->setObjectName(QString("BlockWriteTXT(%1)").arg(column));
    made.Write->setAccessibleName(QStringLiteral("Byte %1 to write, in hexadecimal").arg(column));
    made.Write->setToolTip(
        QStringLiteral("Byte %1 to write. Pasted bytes go here and into the boxes that follow")
            .arg(column));
    made.Write->setAlignment(Qt::AlignCenter);
    made.Write->setFont(look::NumbersFont(look::Size::Large));
    made.Write->Put("00");
    connect(made.Write, &BlockByteEntry::Pasted, this,
            [this, column](const QString& text) { Paste(column, text); });

    band.setColumnStretch(at, 1);
    band.addWidget(made.Number, NumberRow, at);
    band.addWidget(made.Read, ReadRow, at);
    band.addWidget(made.Fcs, FcsRow, at);
    band.addWidget(made.Write, WriteRow, at);
}

void BlockGrid::ShowReading(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        Show(ReadData(column), "Byte read", column, HexText(bytes[i]));
    }
    m_copy->setEnabled(true);
}

void BlockGrid::ShowPEC(std::span<const std::uint8_t> trace) {
    for (std::size_t i = 0; i < trace.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        Show(PECAfter(column), "PEC after byte", column, HexText(trace[i]));
    }
}

void BlockGrid::ClearReading() {
    for (int column = 1; column <= GridColumns; ++column) {
        Show(ReadData(column), "Byte read", column, NoValue);
    }
    m_copy->setEnabled(false);
}

void BlockGrid::ClearPEC() {
    for (int column = 1; column <= GridColumns; ++column) {
        Show(PECAfter(column), "PEC after byte", column, NoValue);
    }
}

void BlockGrid::EnableAll() {
    for (const Column& column : m_columns) {
        column.Read->setEnabled(true);
        column.Write->setEnabled(true);
    }
}

void BlockGrid::EnableReading(int columns) {
    for (int column = 1; column <= GridColumns; ++column) {
        ReadData(column).setEnabled(column <= columns);
    }
}

QString BlockGrid::ReadingAsText() const {
    std::vector<std::uint8_t> bytes;
    for (const Column& column : m_columns) {
        if (const auto byte = ByteOf(column.Read->text(), 16)) {
            bytes.push_back(*byte);
        }
    }
    return FormatHexBytes(bytes, BandColumns);
}

void BlockGrid::CopyReading() {
    QGuiApplication::clipboard()->setText(ReadingAsText());
}

void BlockGrid::Paste(int column, const QString& text) {
    const auto bytes = ParseHexBytes(text);
    if (!bytes) {
        Q_EMIT PasteRefused("The pasted text is not a list of hexadecimal bytes.");
        return;
    }
    const std::size_t room = m_columns.size() + 1 - static_cast<std::size_t>(column);
    const std::size_t count = std::min(bytes->size(), room);
    for (std::size_t i = 0; i < count; ++i) {
        WriteEntry(column + static_cast<int>(i)).Value((*bytes)[i]);
    }
    if (count < bytes->size()) {
        Q_EMIT PasteRefused(QStringLiteral("Only the first %1 of the %2 pasted bytes fit.")
                                .arg(count)
                                .arg(bytes->size()));
    }
}

} // namespace tqx
