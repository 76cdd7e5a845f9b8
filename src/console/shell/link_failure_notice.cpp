#include "console/link_failure_notice.h"

#include <link/link_error.h>

#include <QCoreApplication>

namespace tqx {

LinkFailureNotice NoticeOf(const LinkError& error) {
    LinkFailureNotice notice{
        .Title = QCoreApplication::translate("MainForm", "The link to the TQX7716 failed"),
        .Text = QString::fromUtf8(error.what())};
    if (!error.Advice().empty()) {
        notice.Text += "\n\n" + QString::fromStdString(error.Advice());
    }
    return notice;
}

} // namespace tqx
