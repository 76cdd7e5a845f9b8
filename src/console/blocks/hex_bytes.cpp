#include "blocks/hex_bytes.h"

#include <QRegularExpression>

namespace tqx {
namespace {

/// The digits of one word of the text, without the marks that say "hexadecimal".
QString DigitsOf(QString word) {
    if (word.startsWith("0x", Qt::CaseInsensitive)) {
        word.remove(0, 2);
    } else if (word.endsWith('h', Qt::CaseInsensitive)) {
        word.chop(1);
    }
    return word;
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

} // namespace tqx
