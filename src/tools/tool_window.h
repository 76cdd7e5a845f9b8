#pragma once

#include <QDialog>
#include <QString>

namespace tqx {

/// A tool window, with handlers that may yield to the event loop and so see their own window
/// closed.
///
/// A close hides the window at once and asks a handler under way to stop. The object lives on
/// until that handler has come to its end: `Unloaded` tells the owner that no code of the window
/// is left to run and that it can be destroyed from the event loop.
///
/// Enter presses the button that has the focus. With the focus on anything else it presses the
/// default button, if there is one.
class ToolWindow : public QDialog {
    Q_OBJECT

public:
    /// The window has been closed; its handlers are to come to their end.
    bool Unloading() const { return m_unloading; }

    /// The window has been closed and no handler of it is under way.
    bool CanBeDestroyed() const { return m_unloading && m_yielding == 0; }

    /// Escape closes the window as its close control does.
    void reject() override;

Q_SIGNALS:
    /// Emitted once, when the window closes.
    void Closed();
    /// Emitted once, after Closed, when no handler is under way any more.
    void Unloaded();

protected:
    /// `formName`: the window's objectName.
    ToolWindow(const QString& formName, const QString& caption);

    /// The length of a handler that may yield to the event loop.
    class Yielding {
    public:
        explicit Yielding(ToolWindow& window);
        ~Yielding();

        Yielding(const Yielding&) = delete;
        Yielding& operator=(const Yielding&) = delete;

    private:
        ToolWindow& m_window;
    };

    /// The window closes: whatever runs by itself is to stop.
    virtual void AskToStop() {}

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_unloading = false;
    int m_yielding = 0; // handlers under way that may yield
};

} // namespace tqx
