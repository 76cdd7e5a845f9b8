// An entry box for a byte, under any keys, pastes and texts that the program sets.

#include "fuzz/fuzz_bytes.h"

#include <controls/number_entry.h>

#include <QApplication>
#include <QKeyEvent>

#include <array>

namespace tqx {
namespace {

constexpr std::array Keys{Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,   Qt::Key_Right,
                          Qt::Key_Home,      Qt::Key_End,    Qt::Key_Escape, Qt::Key_Return};

void Press(NumberEntry& entry, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&entry, &press);
}

/// What the program itself has set may be longer than a byte; the hand may only make it shorter.
void Act(NumberEntry& entry, fuzz::Bytes& bytes, bool& byHandOnly) {
    const std::uint8_t action = bytes.Take();
    switch (action % 6) {
    case 0:
        Press(entry, Keys.at(bytes.Take() % Keys.size()));
        break;
    case 1:
        entry.insert(QString::fromStdString(bytes.Text(bytes.Take() % 16)));
        break;
    case 2:
        entry.setSelection(bytes.Take() % 8, bytes.Take() % 8);
        break;
    case 3:
        entry.Put(QString::fromStdString(bytes.Text(bytes.Take() % 16)));
        byHandOnly = false;
        break;
    case 4:
        entry.undo();
        break;
    default:
        Press(entry, Qt::Key_unknown, QString(QChar(bytes.Take())));
    }
}

} // namespace
} // namespace tqx

/// The application is never destroyed, so leaks cannot be told from what it keeps.
extern "C" const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier)
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: it must not end after what Qt itself keeps to the end of the process.
    [[maybe_unused]] static auto* const application = new QApplication(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tqx;
    fuzz::Bytes bytes(data, size);
    const auto base = bytes.Take() % 2 == 0 ? NumberEntry::Decimal : NumberEntry::Hexadecimal;
    NumberEntry entry(base);
    bool byHandOnly = true;
    QObject::connect(&entry, &NumberEntry::EntryConfirmed, &entry, [&](const QString& text) {
        fuzz::Require(text == entry.text(), "what is confirmed is what is seen");
        fuzz::Require(!text.isEmpty(), "nothing is confirmed only where there is something");
    });
    while (bytes.More()) {
        Act(entry, bytes, byHandOnly);
        fuzz::Require(!byHandOnly || entry.Value() <= 0xFF, "a hand can type a byte and no more");
    }
    return 0;
}
