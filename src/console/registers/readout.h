#pragma once

#include <QFrame>
#include <QLabel>

#include <cstdint>
#include <string_view>

namespace tqx {

/// The register on view: its name, its address, and its value in both bases, in large digits on a
/// dark display.
class RegisterReadout : public QFrame {
    Q_OBJECT

public:
    explicit RegisterReadout(QWidget* parent = nullptr);

    void TypeLabel(std::string_view text);
    void Address(std::uint8_t address);
    void Value(std::uint8_t value);
    /// Shows neither address nor value.
    void Clear();

private:
    QLabel* m_typeLabel;
    QLabel* m_addressLabel;
    QLabel* m_hexLabel;
    QLabel* m_decLabel;
};

} // namespace tqx
