#include "support/FakeRegistry.h"

#include "platform/Casing.h"

namespace ventlock::test {
namespace {

std::string FullPath(RegistryRoot root, std::string_view path) {
    while (path.ends_with('\\')) path.remove_suffix(1);
    std::string full = root == RegistryRoot::LocalMachine ? "HKEY_LOCAL_MACHINE" : "HKEY_CURRENT_USER";
    if (!path.empty()) full += "\\" + std::string(path);
    return full;
}

}  // namespace

class FakeRegistry::Key final : public IRegistryKey {
 public:
    Key(FakeRegistry& registry, std::string path) : registry_(registry), path_(std::move(path)) {}

    RegistryStatus Query(std::string_view name, std::uint32_t& type, std::string& bytes) override {
        const auto& values = registry_.keys_[UpperCase(path_)];
        const auto found = values.find(UpperCase(name));
        if (found == values.end()) return kRegistryFileNotFound;
        type = found->second.value.type;
        bytes = found->second.value.bytes;
        return kRegistrySuccess;
    }

    RegistryStatus Set(std::string_view name, std::uint32_t type, std::string_view bytes) override {
        const Value value{type, std::string(bytes)};
        registry_.sets.push_back({path_, std::string(name), value});
        if (registry_.writeStatus_ != kRegistrySuccess) return registry_.writeStatus_;
        auto& stored = registry_.keys_[UpperCase(path_)];
        stored.try_emplace(UpperCase(name), Values{std::string(name), {}}).first->second.value = value;
        return kRegistrySuccess;
    }

 private:
    FakeRegistry& registry_;
    std::string path_;
};

RegistryStatus FakeRegistry::OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                                     std::unique_ptr<IRegistryKey>& key) {
    const std::string full = FullPath(root, path);
    RegistryStatus status = kRegistrySuccess;
    if (!path.empty() && !keys_.contains(UpperCase(full))) {
        status = kRegistryFileNotFound;
    } else if (const auto refused = refusedMasks_.find(mask); refused != refusedMasks_.end()) {
        status = refused->second;
    }
    opens.push_back({full, mask, status});
    if (status == kRegistrySuccess) key = std::make_unique<Key>(*this, full);
    return status;
}

RegistryStatus FakeRegistry::CreateKey(RegistryRoot root, std::string_view path,
                                       std::unique_ptr<IRegistryKey>& key) {
    if (writeStatus_ != kRegistrySuccess) return writeStatus_;
    PutKey(root, path);
    key = std::make_unique<Key>(*this, FullPath(root, path));
    return kRegistrySuccess;
}

void FakeRegistry::PutKey(RegistryRoot root, std::string_view path) {
    const std::string full = UpperCase(FullPath(root, path));
    for (std::size_t end = full.find('\\'); end != std::string::npos; end = full.find('\\', end + 1)) {
        keys_[full.substr(0, end)];
    }
    keys_[full];
}

void FakeRegistry::Put(RegistryRoot root, std::string_view path, std::string_view name, std::uint32_t type,
                       std::string_view bytes) {
    PutKey(root, path);
    keys_[UpperCase(FullPath(root, path))][UpperCase(name)] = {std::string(name), {type, std::string(bytes)}};
}

void FakeRegistry::PutText(RegistryRoot root, std::string_view path, std::string_view name,
                           std::string_view text) {
    Put(root, path, name, kRegistryString, text);
}

void FakeRegistry::PutNumber(RegistryRoot root, std::string_view path, std::string_view name,
                             std::uint32_t number) {
    std::string bytes;
    for (std::uint32_t shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((number >> shift) & 0xFFU);
    Put(root, path, name, kRegistryDword, bytes);
}

std::optional<FakeRegistry::Value> FakeRegistry::Get(RegistryRoot root, std::string_view path,
                                                     std::string_view name) const {
    const auto key = keys_.find(UpperCase(FullPath(root, path)));
    if (key == keys_.end()) return std::nullopt;
    const auto value = key->second.find(UpperCase(name));
    if (value == key->second.end()) return std::nullopt;
    return value->second.value;
}

}  // namespace ventlock::test
