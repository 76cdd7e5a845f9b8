#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tqx {

/// A system registry, in the three calls that the program needs of it.
class SystemRegistry {
public:
    using Key = std::uintptr_t;

    struct Value {
        std::uint32_t Type = 0;
        /// The characters that the query reported, a closing NUL among them if there is one.
        std::string Characters;
    };

    virtual ~SystemRegistry() = default;

    /// Opens `name` under `root` and sets `key`; False when it could not. `key` is to be closed in
    /// either case.
    virtual bool Open(std::uint32_t root, const std::string& name, std::uint32_t access,
                      Key& key) = 0;
    /// The value `name`, up to `size` characters of it; nothing when the query fails.
    virtual std::optional<Value> Query(Key key, const std::string& name, std::size_t size) = 0;
    virtual void Close(Key key) = 0;
};

/// The root key of what holds for the whole machine.
inline constexpr std::uint32_t LocalMachine = 0x80000002; // HKEY_LOCAL_MACHINE

/// Reads the value `subKeyRef` of the key `keyName` under `keyRoot` into `keyVal`: a string as it
/// is, a double word in decimal, anything else not at all. False, with `keyVal` empty, when the
/// value could not be read.
bool GetKeyValue(SystemRegistry& registry, std::uint32_t keyRoot, const std::string& keyName,
                 const std::string& subKeyRef, std::string& keyVal);

} // namespace tqx
