// The place and the text of a register dump.

#include "fuzz/fuzz_bytes.h"
#include "register_dump/dump_place.h"

#include <jobs/dump_format.h>

#include <QStandardPaths>

#include <array>
#include <string_view>

namespace tqx {
namespace {

void ExpectRow(const std::string& row) {
    fuzz::Require(std::string_view(row).ends_with("\r\n"), "a row ends with CR LF");
    fuzz::Require(row.find('\n') == row.size() - 1, "a row is one line");
}

} // namespace
} // namespace tqx

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tqx;
    fuzz::Bytes bytes(data, size);
    std::array<std::uint8_t, dump::RowSize> row{};
    for (auto& value : row) {
        value = bytes.Take();
    }
    const std::uint8_t address = bytes.Take();
    ExpectRow(dump::RAMRow(address, row));
    ExpectRow(dump::EEPROMRow(bytes.Take(), address, row));

    const bool onDrive = bytes.Take() % 2 == 0;
    const QString path = (onDrive ? "C:\\" : "") + QString::fromStdString(bytes.Text(400));
    const QString place = PlaceOfDump(path);
    static const QString documents =
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (path.startsWith("C:\\")) {
        fuzz::Require(place.startsWith(documents + '/'), "drive C lies in the documents folder");
        fuzz::Require(!place.contains('\\'), "a place on drive C has no backslash");
    } else {
        fuzz::Require(place == path, "any other path is itself");
    }
    return 0;
}
