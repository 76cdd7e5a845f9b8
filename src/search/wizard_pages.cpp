#include "wizard_pages.h"

#include "result_rows.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <charconv>

namespace tqx {
namespace {

constexpr int Gap = 4 * look::Grid;
/// Where a text that explains a check box begins: under the box's own text.
constexpr int ExplanationIndent = 6 * look::Grid;

/// In bold Arial, or what the system has in its place.
QLabel* Heading(const QString& name, const QString& text) {
    QLabel* label = kit::Text(name, text);
    QFont font = look::WordsFont(look::Size::Title, QFont::Bold);
    font.setFamilies(QStringList("Arial") + font.families());
    label->setFont(font);
    return label;
}

QLabel* Advice(const QString& name, const QString& text) {
    QLabel* label = kit::Text(name, text);
    label->setIndent(ExplanationIndent);
    look::SetInk(*label, look::GreenInk);
    return label;
}

QCheckBox* Medium(const QString& name, const QString& text, const QString& tooltip,
                  const QString& key) {
    QCheckBox* box = kit::CheckBox(name, text, tooltip, key);
    box->setFont(look::WordsFont(look::Size::Section, look::Strong));
    return box;
}

QVBoxLayout* PageLayout(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(Gap);
    return layout;
}

/// Shows a row without its tail, which is for Finish alone.
class SentenceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * look::Grid);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = SentenceOfRow(option->text);
    }
};

/// The picture is drawn on a sheet of this size, which is laid over the middle of the widget.
constexpr QSize Sheet(176, 360);

constexpr QRectF Chip(34, 118, 76, 108);
constexpr int PinsOnASide = 7;
constexpr qreal PinPitch = 14;
constexpr QSizeF Pin(12, 5);

/// Where the two bus lines run, and the pins that they lead to.
constexpr qreal ClockX = 140;
constexpr qreal DataX = 156;
constexpr int ClockPin = 2;
constexpr int DataPin = 4;

qreal PinY(int pin) {
    return Chip.top() + (Chip.height() - (PinsOnASide - 1) * PinPitch) / 2 + pin * PinPitch;
}

void DrawBus(QPainter& painter) {
    for (const auto& [x, pin, colour] : {std::tuple(ClockX, ClockPin, look::Accent),
                                         std::tuple(DataX, DataPin, look::DisplayGreen)}) {
        painter.setPen(QPen(QColor(colour), 2, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x, -1000), QPointF(x, Sheet.height() + 1000));
        painter.drawLine(QPointF(Chip.right() + Pin.width(), PinY(pin)), QPointF(x, PinY(pin)));
        painter.setBrush(QColor(colour));
        painter.drawEllipse(QPointF(x, PinY(pin)), 3, 3);
    }
}

void DrawChip(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(look::DisplayQuiet));
    for (int pin = 0; pin < PinsOnASide; ++pin) {
        const qreal top = PinY(pin) - Pin.height() / 2;
        painter.drawRect(QRectF(QPointF(Chip.left() - Pin.width(), top), Pin));
        painter.drawRect(QRectF(QPointF(Chip.right(), top), Pin));
    }
    painter.setPen(QPen(QColor(look::DisplayQuiet), 1));
    painter.setBrush(QColor(look::DisplayEdge));
    painter.drawRoundedRect(Chip, 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(look::DisplayQuiet));
    painter.drawEllipse(Chip.topLeft() + QPointF(12, 12), 3.5, 3.5);
    painter.setPen(QColor(look::DisplayInk));
    painter.setFont(look::WordsFont(look::Size::Title, look::Strong));
    painter.drawText(Chip, Qt::AlignCenter, "TQX\n7716");
}

/// One transfer as a scope would show it: the clock's pulses over the data.
void DrawTransfer(QPainter& painter) {
    constexpr qreal Left = 22;
    constexpr qreal Cell = 7.7;
    constexpr qreal Height = 12;
    const auto trace = [&painter](qreal low, QRgb colour, const QString& levels) {
        QPainterPath path;
        for (int i = 0; i < levels.size(); ++i) {
            const qreal y = levels[i] == '1' ? low - Height : low;
            const QPointF at(Left + i * Cell, y);
            i == 0 ? path.moveTo(at) : path.lineTo(at);
            path.lineTo(at + QPointF(Cell, 0));
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(colour), 1.5));
        painter.drawPath(path);
    };
    trace(280, look::Accent, "1101010101011");
    trace(304, look::DisplayGreen, "1001100110001");
}

} // namespace

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent)
    , Skip(kit::Button("SkipCMD", "Skip", "Open the main window without a chip", "Alt+K")) {
    setObjectName("WelcomePanel");
    Skip->setAutoDefault(true);

    QLabel* welcome = kit::Text("WelcomeLBL", "This TQX7716 Search Wizard will find any TQX7716s "
                                              "that can be controlled by this software");
    welcome->setFont(look::WordsFont(look::Size::Title, look::Strong));
    QVBoxLayout* page = PageLayout(this);
    page->addWidget(welcome);
    page->addWidget(kit::Text("WelcomeInstructionsLBL", "Click 'Next' to start."));
    page->addStretch();
    page->addWidget(kit::Text("Label1", "Click \"Skip\" to skip this process (you will not be able "
                                        "to communicate with the TQX7716)."));
    page->addWidget(Skip, 0, Qt::AlignLeft);
}

int BuildOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    int build = 0;
    std::from_chars(text.data(), text.data() + text.size(), build);
    return build;
}

MediumPage::MediumPage(QWidget* parent)
    : QWidget(parent)
    , m_printerPort(Medium("PPCheck", "Parallel Printer Port",
                           "Search the printer ports of this machine", "Alt+P"))
    , m_smbus(Medium("SMBusCheck", "On-Board SMBus",
                     "Search the SMBus on this machine's main board", "Alt+S"))
    , m_smbusAdvice(Advice("SMBusSearchDescLBL", {}))
    , m_smbusBase(new QLineEdit("00000"))
    , m_usb(Medium("USBCheck", "USB", {}, {}))
    , m_usbAdvice(Advice("USBSearchDescLBL", {})) {
    setObjectName("SeclectComsMediumPanel");
    m_printerPort->setChecked(true);
    m_usb->setEnabled(false);
    m_usb->hide();
    m_usbAdvice->hide();
    m_smbusBase->setObjectName("SMBusBaseAddressTXT");
    m_smbusBase->setAccessibleName("SMBus base address, hexadecimal");
    m_smbusBase->setToolTip(
        "Base address of the SMBus host controller (SMBBA) as the link gives it, hexadecimal.\n"
        "A number typed here is for your notes: the link takes no base address.");
    m_smbusBase->setFont(look::NumbersFont());
    m_smbusBase->setFixedWidth(28 * look::Grid);
    m_smbusBase->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9A-Fa-f]{0,8}"), m_smbusBase));

    auto* address = new QHBoxLayout;
    address->addSpacing(ExplanationIndent);
    address->addWidget(m_smbusBase);
    address->addStretch();
    QVBoxLayout* page = PageLayout(this);
    page->setSpacing(2 * look::Grid);
    page->addWidget(Heading("MediumHeadingLBL", "Search Medium"));
    page->addSpacing(Gap);
    page->addWidget(m_printerPort);
    page->addWidget(Advice("PPSearchDescLBL", "Remember to connect the TQX7716 evaluation "
                                              "board to the printer port"));
    page->addSpacing(Gap);
    page->addWidget(m_smbus);
    page->addWidget(m_smbusAdvice);
    page->addLayout(address);
    page->addSpacing(Gap);
    page->addWidget(m_usb);
    page->addWidget(m_usbAdvice);
    page->addStretch();
    page->addWidget(kit::Text("SearchMediumInstLBL", "Click 'Next' to search for the TQX7716."));
}

SearchMedia MediumPage::Checked() const {
    return {.PrinterPort = m_printerPort->isChecked(),
            .SMBus = m_smbus->isChecked(),
            .USB = m_usb->isChecked()};
}

void MediumPage::OfferSMBus(std::uint32_t baseAddress) {
    m_smbusAdvice->setText("The Southbridge or ICH of Intel chipsets. For unsupported "
                           "Intel chipsets, enter SMBBA here (Hex).");
    m_smbusBase->setText(HexText(baseAddress));
}

void MediumPage::RefuseSMBus() {
    m_smbusAdvice->setText("Sorry, SMBus communication is only supported on Windows 95,98 and ME.");
    look::SetInk(*m_smbusAdvice, look::DarkRedInk);
    m_smbus->setChecked(false);
    m_smbus->setEnabled(false);
    m_smbusBase->setEnabled(false);
}

void MediumPage::RefuseUSB() {
    m_usbAdvice->setText("Sorry, USB communication is not supported on Windows 95.");
    look::SetInk(*m_usbAdvice, look::DarkRedInk);
    m_usb->setChecked(false);
    m_usb->setEnabled(false);
}

SearchingPage::SearchingPage(QWidget* parent)
    : QWidget(parent)
    , m_progress(new QProgressBar) {
    setObjectName("SearchingPanel");
    m_progress->setObjectName("SearchProgress");
    m_progress->setAccessibleName("Progress of the search");
    m_progress->setRange(0, 100);
    m_progress->setValue(0);
    m_progress->setTextVisible(false);

    QVBoxLayout* page = PageLayout(this);
    page->addWidget(Heading("SearchingLBL", "Searching"));
    page->addWidget(
        kit::Text("SearchingDetailsLBL", "Please wait while searching for available TQX7716s."));
    page->addWidget(m_progress);
    page->addStretch();
}

void SearchingPage::Max(int max) {
    m_progress->setMaximum(max);
}

void SearchingPage::Step(int step) {
    m_progress->setValue(std::min(m_progress->value() + step, m_progress->maximum()));
    repaint();
}

void SearchingPage::Rewind() {
    m_progress->setValue(0);
}

ResultsPage::ResultsPage(QWidget* parent)
    : QWidget(parent)
    , List(new QListWidget)
    , m_result(kit::Text("SearchResultsLBL", "Please select one of the TQX7716s found above."))
    , m_instruction(kit::Text("SearchInsLBL", "Click 'Next' to Continue"))
    , m_notes(kit::Text("SearchNotesLBL", {})) {
    setObjectName("SearchResultsPanel");
    List->setObjectName("SearchResultsLIST");
    List->setAccessibleName("TQX7716s found");
    List->setToolTip("Double-click a row to choose that chip");
    List->setFont(look::NumbersFont());
    List->setItemDelegate(new SentenceDelegate(List));
    List->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    look::SetInk(*m_notes, look::QuietInk);
    m_notes->hide();

    QVBoxLayout* page = PageLayout(this);
    page->addWidget(Heading("SearchResultsDescLBL", "Search Results"));
    page->addWidget(List, 1);
    page->addWidget(m_result);
    page->addWidget(m_notes);
    page->addWidget(m_instruction);
}

void ResultsPage::ShowRows(const std::vector<ResultRow>& rows, const QStringList& notes) {
    List->clear();
    for (const ResultRow& row : rows) {
        auto* item = new QListWidgetItem(row.Text, List);
        item->setData(Qt::AccessibleTextRole, SentenceOfRow(row.Text));
        item->setToolTip(row.Remark);
    }
    List->setCurrentRow(0);
    if (rows.empty()) {
        m_result->setText(
            "Sorry, no TQX7716s were found. Please check all connections and try again");
        m_instruction->setText("Click Back to continue...");
    } else {
        m_result->setText("Please select one of the TQX7716s found above.");
        m_instruction->setText("Click 'Finish' to Continue");
    }
    m_notes->setText(notes.join('\n'));
    m_notes->setVisible(!notes.isEmpty());
}

void ResultsPage::Clear() {
    List->clear();
}

int ResultsPage::SelectedRow() const {
    return List->currentRow();
}

QString ResultsPage::SelectedText() const {
    const QListWidgetItem* item = List->currentItem();
    return item ? item->text() : QString();
}

WizardPicture::WizardPicture(QWidget* parent)
    : QWidget(parent) {
    setObjectName("Image1");
    setAccessibleName("Picture of a chip on a bus");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize WizardPicture::sizeHint() const {
    return Sheet;
}

void WizardPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(look::Display));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - Sheet.width()) / 2.0, (height() - Sheet.height()) / 2.0);
    DrawBus(painter);
    DrawChip(painter);
    DrawTransfer(painter);
}

} // namespace tqx
