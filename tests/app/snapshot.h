#pragma once

#include <QString>
#include <QWidget>

#include <map>
#include <string>

namespace tqx::test {

/// What a picture of a window does not show, in words: of each of its controls that is on view the
/// name, the place, whether it can be used, and what screen readers and tooltips say of it; and the
/// order in which Tab goes.
class Snapshot {
public:
    /// A line for each control that is not as it was when a window of this name was last looked at.
    std::string Of(QWidget& window);

private:
    using Lines = std::map<QString, QString>; ///< by the control's name
    static Lines LinesOf(QWidget& window);

    std::map<QString, Lines> m_last; ///< by the window's name
};

} // namespace tqx::test
