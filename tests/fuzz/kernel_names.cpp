// The names and small files in which the kernel tells of adapters and ports, with any content.
// No number comes out of them that is not in them.

#include "adapters.h"
#include "fuzz/fuzz_bytes.h"
#include "kernel_files.h"
#include "ppdev_port.h"
#include "support/fake_kernel.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <string>

namespace tqx {
namespace {

std::string Lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char character) {
        return static_cast<char>(std::tolower(character));
    });
    return text;
}

std::string Digits(unsigned number, int base) {
    std::array<char, 16> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number, base);
    return {text.data(), end};
}

} // namespace
} // namespace tqx

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tqx;
    fuzz::Bytes bytes(data, size);
    test::FakeKernel kernel;
    kernel.ReadAtMost = 1 + bytes.Take();
    const bool nameTells = bytes.Take() % 2 == 0;
    // Half of the runs have no address in the name, so that the resource file is asked.
    const std::string text = bytes.Text(200);
    const std::string name = nameTells ? "SMBus I801 adapter at " + text : text;
    const std::string resource = bytes.Text(300);
    const std::string baseAddress = bytes.Text(100);
    const std::string folder = bytes.Text(20);
    kernel.AddAdapter(3, name);
    kernel.AddPort(0, baseAddress);
    kernel.Files["/sys/bus/i2c/devices/i2c-3/../resource"] = resource;
    kernel.Files["/sys/bus/i2c/devices/" + folder + "/name"] = name;
    kernel.Files["/proc/sys/dev/parport/" + folder + "/base-addr"] = baseAddress;

    for (const Adapter& adapter : FindAdapters(kernel)) {
        IsHostController(adapter.Name);
        fuzz::Require(IsThere(kernel, adapter), "an adapter that was found is there");
        const std::uint32_t address = BaseAddressOf(kernel, adapter);
        const std::string said = Lower(adapter.Name + ' ' + resource);
        fuzz::Require(address == 0 || said.find(Digits(address, 16)) != std::string::npos,
                      "the base address stands in the name or in the resource file");
    }
    for (const auto& port : FindPrinterPorts(kernel)) {
        const std::uint16_t address = port->BaseAddress();
        fuzz::Require(address == 0 || baseAddress.find(Digits(address, 10)) != std::string::npos,
                      "the port's address stands in its file");
    }
    fuzz::Require(kernel.OpenFiles() == 0, "every file is closed");
    return 0;
}
