#pragma once

#include "tool_window.h"

#include <console/message_door.h>

namespace tqx {

class SysInfoHost;

/// The about box: what the program is, its version, and a way to the system's own information
/// program.
class AboutFRM : public ToolWindow {
    Q_OBJECT

public:
    AboutFRM(MessageDoor door, SysInfoHost& host);

private:
    void MakeLayout();

    MessageDoor m_door;
    SysInfoHost& m_host;
};

} // namespace tqx
