#include "erase_eeprom/erase_eeprom_frm.h"

#include <console/high_byte_combo.h>
#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>
#include <device/bench.h>

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tqx {
namespace {

constexpr int ProgressEnd = eeprom::BlockCount - 1;

std::uint8_t ByteShown(const QLabel& label) {
    return ByteOf(label.text(), 16).value_or(0);
}

} // namespace

/// The length of one Erase All: its stop button can be pressed and nothing else can erase.
class EraseEEPROMFRM::EraseAllScope {
public:
    explicit EraseAllScope(EraseEEPROMFRM& window)
        : m_window(window) {
        m_window.SetEraseAllRunning(true);
    }

    ~EraseAllScope() {
        m_window.m_stopRequested = false;
        m_window.SetEraseAllRunning(false);
    }

    EraseAllScope(const EraseAllScope&) = delete;
    EraseAllScope& operator=(const EraseAllScope&) = delete;

private:
    EraseEEPROMFRM& m_window;
};

EraseEEPROMFRM::EraseEEPROMFRM(Bench& bench, const MessageDoor& door, Waiter wait)
    : ToolWindow("EraseEEPROMFRM", "Erase EEPROM Page")
    , m_bench(bench)
    , m_modes(bench.Bus, door)
    , m_wait(std::move(wait)) {
    MakeLayout();
    connect(m_eepromHighByteCOMBO, &HighByteCombo::currentTextChanged, this,
            &EraseEEPROMFRM::ShowHighByte);
    for (int i = 0; i < eeprom::PagesInBlock; ++i) {
        connect(m_erasePageCMD[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
                [this, i] { ErasePage(i); });
    }
    connect(m_eraseAllCMD, &QPushButton::clicked, this, &EraseEEPROMFRM::EraseAll);
    connect(m_stopEraseCMD, &QPushButton::clicked, this, [this] { m_stopRequested = true; });
    connect(m_closeCMD, &QPushButton::clicked, this, &EraseEEPROMFRM::close);
    ShowHighByte(m_eepromHighByteCOMBO->currentText());
}

void EraseEEPROMFRM::AskToStop() {
    m_stopRequested = true;
}

void EraseEEPROMFRM::ShowHighByte(const QString& highByte) {
    for (QLabel* label : m_highByteLBL) {
        label->setText(highByte);
    }
}

void EraseEEPROMFRM::ErasePage(int i) {
    const Yielding yielding(*this);
    m_statusLBL->clear();
    m_modes.SelectEraseMode();
    if (Unloading()) {
        return;
    }
    const QLabel& high = *m_highByteLBL[static_cast<std::size_t>(i)];
    const QLabel& low = *m_lowByteLBL[static_cast<std::size_t>(i)];
    m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(ByteShown(high), ByteShown(low), 0);
    m_statusLBL->setText(QStringLiteral("Erase of page %1 %2 sent.").arg(high.text(), low.text()));
}

void EraseEEPROMFRM::EraseAll() {
    const Yielding yielding(*this);
    const EraseAllScope running(*this);
    m_statusLBL->clear();
    m_modes.SelectEraseMode();
    m_totalProgress->setValue(0);
    for (int high = eeprom::FirstHighByte; high <= eeprom::LastHighByte && !Unloading(); ++high) {
        EraseBlock(static_cast<std::uint8_t>(high));
        m_totalProgress->setValue(std::min(m_totalProgress->value(), ProgressEnd - 1) + 1);
        if (m_stopRequested) {
            break;
        }
    }
    m_statusLBL->setText(
        m_stopRequested
            ? QStringLiteral("Stopped after page %1 %2.")
                  .arg(m_highByteVaueLBL->text(), m_lowByteValueLBL->text().rightJustified(2, '0'))
            : QStringLiteral("Erase of all pages sent."));
}

void EraseEEPROMFRM::EraseBlock(std::uint8_t high) {
    m_highByteVaueLBL->setText(HexText(high));
    for (int k = 0; k < eeprom::PagesInBlock; ++k) {
        m_lowByteValueLBL->setText(HexText(eeprom::PageStart(k)));
        m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(high, eeprom::PageStart(k), 0);
        m_wait(eeprom::ProgramPause);
        if (m_stopRequested) {
            return;
        }
    }
}

void EraseEEPROMFRM::SetEraseAllRunning(bool running) {
    m_stopEraseCMD->setEnabled(running);
    // The focus goes along with the one command that makes sense, so that Space stops.
    (running ? m_stopEraseCMD : m_closeCMD)->setFocus();
    m_eraseAllCMD->setEnabled(!running);
    m_eepromHighByteCOMBO->setEnabled(!running);
    for (QPushButton* erase : m_erasePageCMD) {
        erase->setEnabled(!running);
    }
}

void EraseEEPROMFRM::MakeLayout() {
    m_closeCMD = kit::Button("CloseCMD", "Close",
                             "Closes this window; an erase under way stops first", "Alt+C");
    m_closeCMD->setDefault(true);
    m_statusLBL = kit::Heading("StatusLBL", {});
    m_statusLBL->setAccessibleName("Status");
    auto* end = new QHBoxLayout;
    end->addWidget(m_statusLBL, 1);
    end->addWidget(m_closeCMD);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(MakePages());
    layout->addWidget(MakeFullErase());
    layout->addLayout(end);
    m_closeCMD->setFocus();
}

QGroupBox* EraseEEPROMFRM::MakePages() {
    QGroupBox* frame = kit::Frame("Frame1", "Erase Page");
    m_eepromHighByteCOMBO = new HighByteCombo;
    m_eepromHighByteCOMBO->setToolTip("The block whose pages stand below");

    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(6 * look::Grid);
    grid->addWidget(kit::Label("Label1", "High Byte"), 0, 0);
    grid->addWidget(m_eepromHighByteCOMBO, 0, 1, 1, 2);
    grid->setRowMinimumHeight(1, 2 * look::Grid);
    grid->addWidget(kit::Heading("HighByteLBL(4)", "High Byte"), 2, 0);
    grid->addWidget(kit::Heading("LowByteLBL(4)", "Low Byte"), 2, 1);
    for (int i = 0; i < eeprom::PagesInBlock; ++i) {
        const auto row = static_cast<std::size_t>(i);
        const QString low = HexText(eeprom::PageStart(i)).rightJustified(2, '0');
        m_highByteLBL[row] =
            kit::NumberLabel(kit::MemberName("HighByteLBL", i), {}, look::DarkBlueInk);
        m_lowByteLBL[row] = kit::NumberLabel(kit::MemberName("LowByteLBL", i), low, look::BodyInk);
        m_erasePageCMD[row] = kit::Button(kit::MemberName("ErasePageCMD", i), "Erase>>",
                                          "Erases the 64 bytes of this page");
        m_erasePageCMD[row]->setAccessibleName(
            QStringLiteral("Erase the page at low byte %1").arg(low));
        grid->addWidget(m_highByteLBL[row], i + 3, 0);
        grid->addWidget(m_lowByteLBL[row], i + 3, 1);
        grid->addWidget(m_erasePageCMD[row], i + 3, 2);
    }
    return frame;
}

QGroupBox* EraseEEPROMFRM::MakeFullErase() {
    QGroupBox* frame = kit::Frame("Frame2", "Full Erase");
    m_eraseAllCMD = kit::Button("EraseAllCMD", "Erase All EEPROM",
                                "Erases all 8192 bytes, which takes about 13 seconds");
    m_stopEraseCMD = kit::Button("StopEraseCMD", "Stop Erase",
                                 "Stops after the page that is being erased", "Alt+S");
    m_totalProgress = kit::ProgressLine("TotalProgress", "Blocks erased", ProgressEnd);
    m_highByteVaueLBL = kit::NumberLabel("HighByteVaueLBL", "00", look::DarkBlueInk);
    m_lowByteValueLBL = kit::NumberLabel("LowByteValueLBL", "00", look::BodyInk);
    m_stopEraseCMD->setEnabled(false);

    const int width = m_lowByteValueLBL->fontMetrics().horizontalAdvance("00");
    m_highByteVaueLBL->setMinimumWidth(width);
    m_lowByteValueLBL->setMinimumWidth(width);

    auto* address = new QHBoxLayout;
    address->addWidget(kit::Heading("Label2", "High Byte:"));
    address->addWidget(m_highByteVaueLBL);
    address->addSpacing(4 * look::Grid);
    address->addWidget(kit::Heading("Label3", "Low Byte:"));
    address->addWidget(m_lowByteValueLBL);
    address->addSpacing(4 * look::Grid);
    address->addWidget(kit::Heading("Label4", "Data Byte:"));
    address->addWidget(kit::NumberLabel("Label5", "00", look::BodyInk));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_stopEraseCMD);
    buttons->addStretch();
    buttons->addWidget(m_eraseAllCMD);

    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addLayout(address);
    column->addWidget(m_totalProgress);
    column->addLayout(buttons);
    return frame;
}

} // namespace tqx
