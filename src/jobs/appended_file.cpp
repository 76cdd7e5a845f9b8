#include "appended_file.h"

namespace tqx {

DumpFile::DumpFile(const QString& place)
    : m_file(place) {
    // Without a buffer of its own a full disk shows at the row that does not fit.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        m_reason = m_file.errorString();
    }
}

void DumpFile::Write(std::string_view text) {
    if (Failed()) {
        return;
    }
    const auto size = static_cast<qint64>(text.size());
    const qint64 written = m_file.write(text.data(), size);
    m_reached = m_reached || written > 0;
    if (written != size) {
        m_reason = m_file.errorString();
    }
}

void DumpFile::Close() {
    m_file.close();
    if (!Failed() && m_file.error() != QFileDevice::NoError) {
        m_reason = m_file.errorString();
    }
}

} // namespace tqx
