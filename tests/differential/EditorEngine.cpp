#include "differential/EditorEngine.h"

#include "base/RunTimeError.h"

namespace ventlock::test {

void EditorEngine::Load(const std::optional<std::string>& bytes) {
    exists_ = bytes.has_value();
    file_ = ProfileFile(bytes.value_or(""), CodePage(kPage));
}

std::string EditorEngine::Read(const ProfileQuery& query) {
    return file_.ReadOr(query.section, query.key, query.fallback, query.bufferSize);
}

std::vector<std::string> EditorEngine::Sections() {
    return file_.Sections();
}

bool EditorEngine::Write(const ProfileWrite& write) {
    try {
        file_.Write(write.section, write.key, write.value);
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::PathFileAccessError) throw;
        return false;
    }
    exists_ = true;
    return true;
}

std::optional<std::string> EditorEngine::Bytes() {
    if (!exists_) return std::nullopt;
    return file_.Bytes();
}

}  // namespace ventlock::test
