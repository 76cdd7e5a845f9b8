#pragma once

namespace tqx {

/// How the wizard reaches the main window and the end of the application.
class MainFormDoor {
public:
    virtual ~MainFormDoor() = default;

    /// Makes MainForm without showing it; does nothing where it is made already. A LinkError of
    /// its load passes through, and MainForm is then not made.
    virtual void Load() = 0;
    /// Shows MainForm, which is loaded.
    virtual void Show() = 0;
    /// Takes MainForm away, if it is made.
    virtual void Unload() = 0;
    /// Closes every window and ends the application. May come more than once.
    virtual void EndApplication() = 0;
};

} // namespace tqx
