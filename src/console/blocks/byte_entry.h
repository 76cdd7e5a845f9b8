#pragma once

#include <controls/number_entry.h>

namespace tqx {

/// One byte of the block to write. Text that is pasted or dropped on it may be more than one byte
/// and is handed over whole, in place of going into this box alone.
class BlockByteEntry : public NumberEntry {
    Q_OBJECT

public:
    explicit BlockByteEntry(QWidget* parent = nullptr);

Q_SIGNALS:
    void Pasted(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PasteClipboard();
};

} // namespace tqx
