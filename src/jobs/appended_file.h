#pragma once

#include <QFile>
#include <QString>

#include <string_view>

namespace tqx {

/// The file that a dump is appended to. It raises no error: what could not be opened or written is
/// remembered, and whatever comes after the first failure is dropped, so that the file never gets
/// a gap.
class DumpFile {
public:
    /// Opens `place` for appending and makes it if need be.
    explicit DumpFile(const QString& place);

    void Write(std::string_view text);
    void Close();

    /// Something was not written; `Reason` tells why, in the system's words.
    bool Failed() const { return !m_reason.isEmpty(); }

    QString Reason() const { return m_reason; }

    /// Something was written.
    bool Reached() const { return m_reached; }

private:
    QFile m_file;
    QString m_reason;
    bool m_reached = false;
};

} // namespace tqx
