#pragma once

#include <QString>

class QWidget;

namespace tqx {

/// The desktop's own dialogs, as the windows reach them; a test answers them without a click.
class SystemDialogs {
public:
    enum class Icon { None, Exclamation, CriticalStop };

    virtual ~SystemDialogs() = default;

    /// A message box with an OK button; comes back when it is gone.
    virtual void Message(QWidget* parent, Icon icon, const QString& title, const QString& text) = 0;

    /// A save dialog that starts on `suggested`, for a file that is added to: it does not ask
    /// whether one of that name may go. The name chosen, or empty when it was cancelled.
    virtual QString SaveFileName(QWidget* parent, const QString& title, const QString& suggested,
                                 const QString& filter) = 0;

    /// The same for a file that is written anew: asks before one of that name goes, and gives a
    /// name without a suffix the one of `suggested`.
    virtual QString NewFileName(QWidget* parent, const QString& title, const QString& suggested,
                                const QString& filter) = 0;
};

/// The dialogs of the desktop.
class DesktopDialogs : public SystemDialogs {
public:
    void Message(QWidget* parent, Icon icon, const QString& title, const QString& text) override;
    QString SaveFileName(QWidget* parent, const QString& title, const QString& suggested,
                         const QString& filter) override;
    QString NewFileName(QWidget* parent, const QString& title, const QString& suggested,
                        const QString& filter) override;
};

} // namespace tqx
