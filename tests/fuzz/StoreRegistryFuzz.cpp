// A store file of any bytes, in which a value is set and read. The input: key, value name, type (its first
// byte), bytes of the value, another value's name, bytes of the store.

#include <memory>
#include <string>

#include "base/Utf.h"
#include "fuzz/Fields.h"
#include "fuzz/MemoryFiles.h"
#include "fuzz/Require.h"
#include "platform/Casing.h"
#include "platform/posix/StoreFileRegistry.h"

namespace ventlock::test {
namespace {

const std::string kStore = "/store.ini";  // its folder is there already

struct Value {
    RegistryStatus status = kRegistrySuccess;
    std::uint32_t type = 0;
    std::string bytes;

    [[nodiscard]] std::string Text() const {
        return std::to_string(status) + " " + std::to_string(type) + ":" + bytes;
    }
};

Value Read(StoreFileRegistry& registry, const std::string& path, const std::string& name) {
    std::unique_ptr<IRegistryKey> key;
    Value value;
    value.status = registry.OpenKey(RegistryRoot::LocalMachine, path, kKeyRead, key);
    if (value.status == kRegistrySuccess) value.status = key->Query(name, value.type, value.bytes);
    return value;
}

void TryStore(Fields& fields) {
    const std::string path = fields.Next();
    const std::string name = fields.Next();
    const std::string type = fields.Next();
    const Value wanted{kRegistrySuccess, type.empty() ? 1U : static_cast<unsigned char>(type[0]),
                       fields.Next()};
    const std::string otherName = fields.Next();
    MemoryFiles files;
    files.Replace(kStore, fields.Rest());
    // A store with this mark may end within a character.
    std::string_view text = fields.Rest();
    while (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
    const bool isUtf16 = text.starts_with(kUtf16Mark);

    StoreFileRegistry registry(files, kStore);
    const Value other = Read(registry, path, otherName);
    std::unique_ptr<IRegistryKey> key;
    const RegistryStatus created = registry.CreateKey(RegistryRoot::LocalMachine, path, key);
    if (created != kRegistrySuccess) {
        Require(created == kRegistryInvalidName || isUtf16, "a key is refused for its name alone", path);
        RequireSame(files.ReadAll(kStore), fields.Rest(), "a refused key changes nothing");
        return;
    }
    RequireSame(Read(registry, path, otherName).Text(),
                other.status == kRegistrySuccess ? other.Text() : "2 0:", "making a key changes no value");
    const std::string before = files.ReadAll(kStore);
    const RegistryStatus set = key->Set(name, wanted.type, wanted.bytes);
    if (set != kRegistrySuccess) {
        Require(set == kRegistryInvalidName || isUtf16, "a value is refused for its name alone", name);
        RequireSame(files.ReadAll(kStore), before, "a refused value changes nothing");
        return;
    }
    RequireSame(Read(registry, path, name).Text(), wanted.Text(), "what is stored reads back");
    if (!EqualIgnoringCase(otherName, name)) {
        RequireSame(
            Read(registry, path, otherName).Text(),
            other.status == kRegistrySuccess ? other.Text() : "2 0:", "storing changes no other value");
    }
    const std::string after = files.ReadAll(kStore);
    Require(key->Set(name, wanted.type, wanted.bytes) == kRegistrySuccess, "a value can be stored twice",
            name);
    RequireSame(files.ReadAll(kStore), after, "a value stored twice gives the bytes of one write");

    // A store that somebody wrote by hand: what was read from it, stored again, reads the same.
    if (other.status != kRegistrySuccess || EqualIgnoringCase(otherName, name)) return;
    Require(key->Set(otherName, other.type, other.bytes) == kRegistrySuccess, "what was read can be stored",
            otherName);
    RequireSame(Read(registry, path, otherName).Text(), other.Text(), "what was read and stored reads back");
}

}  // namespace
}  // namespace ventlock::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ventlock::test::Fields fields(data, size);
    ventlock::test::TryStore(fields);
    return 0;
}
