#include "tools/system_registry.h"

#include <cstdio>

namespace tqx {
namespace {

constexpr std::uint32_t AllAccess = 0x2003F;
constexpr std::size_t BufferSize = 1024;

constexpr std::uint32_t StringType = 1;
constexpr std::uint32_t DoubleWordType = 4;

/// A key that is closed at the end of the scope.
class OpenKey {
public:
    OpenKey(SystemRegistry& registry, std::uint32_t root, const std::string& name)
        : m_registry(registry)
        , m_opened(registry.Open(root, name, AllAccess, m_key)) {}

    ~OpenKey() { m_registry.Close(m_key); }

    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    std::optional<SystemRegistry::Value> Query(const std::string& name) const {
        return m_opened ? m_registry.Query(m_key, name, BufferSize) : std::nullopt;
    }

private:
    SystemRegistry& m_registry;
    SystemRegistry::Key m_key = 0;
    bool m_opened;
};

/// Reads hexadecimal digits, and gives them in decimal.
std::string InDecimal(const std::string& hexadecimal) {
    return std::to_string(std::stoull("0" + hexadecimal, nullptr, 16));
}

} // namespace

bool GetKeyValue(SystemRegistry& registry, std::uint32_t keyRoot, const std::string& keyName,
                 const std::string& subKeyRef, std::string& keyVal) {
    const OpenKey key(registry, keyRoot, keyName);
    std::optional<SystemRegistry::Value> value = key.Query(subKeyRef);
    if (!value) {
        keyVal.clear();
        return false;
    }
    std::string& characters = value->Characters;
    if (!characters.empty() && characters.back() == '\0') {
        characters.pop_back();
    }
    if (value->Type == StringType) {
        keyVal = characters;
    } else if (value->Type == DoubleWordType) {
        for (auto at = characters.rbegin(); at != characters.rend(); ++at) {
            char code[3];
            std::snprintf(code, sizeof code, "%X", static_cast<unsigned char>(*at));
            keyVal += code;
        }
        keyVal = InDecimal(keyVal);
    }
    return true;
}

} // namespace tqx
