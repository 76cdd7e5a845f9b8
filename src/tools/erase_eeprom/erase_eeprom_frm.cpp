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
#include <QScopeGuard>
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

EraseEEPROMFRM::EraseEEPROMFRM(Bench& bench, const MessageDoor& door, Waiter wait)
    : ToolWindow("EraseEEPROMFRM", "Erase EEPROM Page")
    , m_bench(bench)
    , m_modes(bench.Bus, door)
    , m_wait(std::move(wait)) {
    MakeLayout();
    connect(m_block, &HighByteCombo::currentTextChanged, this, &EraseEEPROMFRM::ShowHighByte);
    for (int i = 0; i < eeprom::PagesInBlock; ++i) {
        connect(m_erasePage[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
                OnLink(m_bench.Failures, [this, i] { ErasePage(i); }));
    }
    connect(m_eraseAll, &QPushButton::clicked, this,
            OnLink(m_bench.Failures, [this] { EraseAll(); }));
    connect(m_stop, &QPushButton::clicked, this, [this] { m_stopRequested = true; });
    connect(m_close, &QPushButton::clicked, this, &EraseEEPROMFRM::close);
    ShowHighByte(m_block->currentText());
}

void EraseEEPROMFRM::AskToStop() {
    m_stopRequested = true;
}

void EraseEEPROMFRM::ShowHighByte(const QString& highByte) {
    for (QLabel* label : m_pageHigh) {
        label->setText(highByte);
    }
}

void EraseEEPROMFRM::ErasePage(int i) {
    const Yielding yielding(*this);
    m_status->clear();
    m_modes.SelectEraseMode();
    if (Unloading()) {
        return;
    }
    const QLabel& high = *m_pageHigh[static_cast<std::size_t>(i)];
    const QLabel& low = *m_pageLow[static_cast<std::size_t>(i)];
    m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(ByteShown(high), ByteShown(low), 0);
    m_status->setText(
        QStringLiteral("Erase command for page %1 %2 sent.").arg(high.text(), low.text()));
}

void EraseEEPROMFRM::EraseAll() {
    const Yielding yielding(*this);
    SetEraseAllRunning(true);
    const auto end = qScopeGuard([this] {
        m_stopRequested = false;
        SetEraseAllRunning(false);
    });
    m_status->clear();
    m_modes.SelectEraseMode();
    m_progress->setValue(0);
    for (int high = eeprom::FirstHighByte; high <= eeprom::LastHighByte && !Unloading(); ++high) {
        EraseBlock(static_cast<std::uint8_t>(high));
        m_progress->setValue(std::min(m_progress->value(), ProgressEnd - 1) + 1);
        if (m_stopRequested) {
            break;
        }
    }
    m_status->setText(
        m_stopRequested ? QStringLiteral("Stopped after page %1 %2.")
                              .arg(m_erasedHigh->text(), m_erasedLow->text().rightJustified(2, '0'))
                        : QStringLiteral("Erase commands for all pages sent."));
}

void EraseEEPROMFRM::EraseBlock(std::uint8_t high) {
    m_erasedHigh->setText(HexText(high));
    for (int k = 0; k < eeprom::PagesInBlock; ++k) {
        m_erasedLow->setText(HexText(eeprom::PageStart(k)));
        m_bench.Link->PrinterPortLink().EEPROMLink().ErasePage(high, eeprom::PageStart(k), 0);
        m_wait(eeprom::ProgramPause);
        if (m_stopRequested) {
            return;
        }
    }
}

void EraseEEPROMFRM::SetEraseAllRunning(bool running) {
    m_stop->setEnabled(running);
    // The focus goes along with the one command that makes sense, so that Space stops.
    (running ? m_stop : m_close)->setFocus();
    m_eraseAll->setEnabled(!running);
    m_block->setEnabled(!running);
    for (QPushButton* erase : m_erasePage) {
        erase->setEnabled(!running);
    }
}

void EraseEEPROMFRM::MakeLayout() {
    m_close = kit::Button("CloseCMD", "Close", "Closes this window; a running erase stops first",
                          "Alt+C");
    m_close->setDefault(true);
    m_status = kit::Heading("StatusLBL", {});
    m_status->setAccessibleName("Status");
    auto* end = new QHBoxLayout;
    end->addWidget(m_status, 1);
    end->addWidget(m_close);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(MakePages());
    layout->addWidget(MakeFullErase());
    layout->addLayout(end);
    m_close->setFocus();
}

QGroupBox* EraseEEPROMFRM::MakePages() {
    QGroupBox* frame = kit::Frame("Frame1", "Erase Page");
    m_block = new HighByteCombo;
    m_block->setToolTip("The block of the pages below");

    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(6 * look::Grid);
    grid->addWidget(kit::Label("Label1", "High Byte"), 0, 0);
    grid->addWidget(m_block, 0, 1, 1, 2);
    grid->setRowMinimumHeight(1, 2 * look::Grid);
    grid->addWidget(kit::Heading("HighByteLBL(4)", "High Byte"), 2, 0);
    grid->addWidget(kit::Heading("LowByteLBL(4)", "Low Byte"), 2, 1);
    for (int i = 0; i < eeprom::PagesInBlock; ++i) {
        const auto row = static_cast<std::size_t>(i);
        const QString low = HexText(eeprom::PageStart(i)).rightJustified(2, '0');
        m_pageHigh[row] =
            kit::NumberLabel(kit::MemberName("HighByteLBL", i), {}, look::DarkBlueInk);
        m_pageLow[row] = kit::NumberLabel(kit::MemberName("LowByteLBL", i), low, look::BodyInk);
        m_erasePage[row] = kit::Button(kit::MemberName("ErasePageCMD", i), "Erase>>",
                                       "Erases the 64 bytes of this page");
        m_erasePage[row]->setAccessibleName(
            QStringLiteral("Erase the page at low byte %1").arg(low));
        grid->addWidget(m_pageHigh[row], i + 3, 0);
        grid->addWidget(m_pageLow[row], i + 3, 1);
        grid->addWidget(m_erasePage[row], i + 3, 2);
    }
    return frame;
}

QGroupBox* EraseEEPROMFRM::MakeFullErase() {
    QGroupBox* frame = kit::Frame("Frame2", "Full Erase");
    m_eraseAll = kit::Button("EraseAllCMD", "Erase All EEPROM",
                             "Erases all 8192 bytes, which takes about 13 seconds");
    m_stop = kit::Button("StopEraseCMD", "Stop Erase", "Stops after the page that is being erased",
                         "Alt+S");
    m_progress = kit::ProgressLine("TotalProgress", "Blocks erased", ProgressEnd);
    m_erasedHigh = kit::NumberLabel("HighByteVaueLBL", "00", look::DarkBlueInk);
    m_erasedLow = kit::NumberLabel("LowByteValueLBL", "00", look::BodyInk);
    m_stop->setEnabled(false);

    const int width = m_erasedLow->fontMetrics().horizontalAdvance("00");
    m_erasedHigh->setMinimumWidth(width);
    m_erasedLow->setMinimumWidth(width);

    auto* address = new QHBoxLayout;
    address->addWidget(kit::Heading("Label2", "High Byte:"));
    address->addWidget(m_erasedHigh);
    address->addSpacing(4 * look::Grid);
    address->addWidget(kit::Heading("Label3", "Low Byte:"));
    address->addWidget(m_erasedLow);
    address->addSpacing(4 * look::Grid);
    address->addWidget(kit::Heading("Label4", "Data Byte:"));
    address->addWidget(kit::NumberLabel("Label5", "00", look::BodyInk));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_stop);
    buttons->addStretch();
    buttons->addWidget(m_eraseAll);

    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addLayout(address);
    column->addWidget(m_progress);
    column->addLayout(buttons);
    return frame;
}

} // namespace tqx
