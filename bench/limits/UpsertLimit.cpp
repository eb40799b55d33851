#include "limits/UpsertLimit.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace ventlock::bench {
namespace {

constexpr std::size_t kMostLines = 32767;

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(std::string("limit: ") + what);
}

struct Change {
    std::size_t at = 0;      ///< where it begins in the old bytes
    std::size_t length = 0;  ///< how many of them it replaces
    std::string text;        ///< what stands there then
};

/// Where a section's next key goes.
struct Section {
    std::string_view name;
    bool isThere = false;
    std::size_t insertAt = 0;
};

/// The one pass.
class Pass {
 public:
    Pass(std::string_view text, const std::vector<Upsert>& upserts) : text_(text) {
        for (const Upsert& upsert : upserts) {
            const auto isSame = [&](const Section& section) { return section.name == upsert.section; };
            auto section = std::find_if(sections_.begin(), sections_.end(), isSame);
            if (section == sections_.end()) section = sections_.insert(section, {upsert.section});
            wanted_.push_back({&upsert, static_cast<std::size_t>(section - sections_.begin())});
        }
    }

    std::vector<Change> Changes() {
        Walk();
        for (std::size_t i = 0; i < sections_.size(); ++i) AddMissing(i);
        std::stable_sort(changes_.begin(), changes_.end(),
                         [](const Change& a, const Change& b) { return a.at < b.at; });
        return std::move(changes_);
    }

 private:
    struct Wanted {
        const Upsert* upsert;
        std::size_t section;
        bool isFound = false;
    };

    void Walk() {
        const char* const end = text_.data() + text_.size();
        const char* line = text_.data();
        const char* lineEnd = line;
        Section* current = nullptr;
        bool followsBlank = true;
        for (std::size_t count = 0; line < end; line = lineEnd + 1) {
            const std::size_t rest = static_cast<std::size_t>(end - line);
            lineEnd = static_cast<const char*>(std::memchr(line, '\n', rest));
            Require(lineEnd != nullptr && lineEnd > line && lineEnd[-1] == '\r', "the file is not tidy");
            Require(++count <= kMostLines, "too many lines");
            const std::string_view content(line, static_cast<std::size_t>(lineEnd - 1 - line));
            if (*line == '[') {
                Require(followsBlank, "the sections are not apart");
                current = Begin(content, static_cast<std::size_t>(lineEnd + 1 - text_.data()));
            } else if (current != nullptr && !content.empty()) {
                Look(*current, content, static_cast<std::size_t>(lineEnd + 1 - text_.data()));
            }
            followsBlank = content.empty();
        }
    }

    Section* Begin(std::string_view header, std::size_t next) {
        for (Section& section : sections_) {
            if (section.isThere || header.size() != section.name.size() + 2) continue;
            if (header.substr(1, section.name.size()) != section.name) continue;
            section.isThere = true;
            section.insertAt = next;
            return &section;
        }
        return nullptr;
    }

    void Look(Section& section, std::string_view line, std::size_t next) {
        section.insertAt = next;
        for (Wanted& wanted : wanted_) {
            const std::string& key = wanted.upsert->key;
            if (wanted.isFound || &sections_[wanted.section] != &section || line.size() <= key.size() ||
                line[key.size()] != '=' || !line.starts_with(key)) {
                continue;
            }
            wanted.isFound = true;
            const std::string_view value = line.substr(key.size() + 1);
            if (value == wanted.upsert->value) return;
            const auto at = static_cast<std::size_t>(value.data() - text_.data());
            changes_.push_back({at, value.size(), wanted.upsert->value});
            return;
        }
    }

    void AddMissing(std::size_t number) {
        const Section& section = sections_[number];
        std::string lines;
        for (const Wanted& wanted : wanted_) {
            if (wanted.section == number && !wanted.isFound) {
                lines += wanted.upsert->key + "=" + wanted.upsert->value + "\r\n";
            }
        }
        if (lines.empty()) return;
        if (section.isThere) {
            changes_.push_back({section.insertAt, 0, lines});
        } else {
            changes_.push_back({text_.size(), 0, "\r\n[" + std::string(section.name) + "]\r\n" + lines});
        }
    }

    std::string_view text_;
    std::vector<Section> sections_;
    std::vector<Wanted> wanted_;
    std::vector<Change> changes_;
};

/// The file from `parts`, made beside and put in its place.
void Replace(const std::string& folder, const std::string& path, std::vector<iovec> parts) {
    struct stat facts {};
    const bool exists = lstat(path.c_str(), &facts) == 0;
    Require(!exists || access(path.c_str(), W_OK) == 0, "no right to write");
    Require(access(folder.c_str(), W_OK | X_OK) == 0, "no right to the folder");
    const std::string temporary = path + ".limit";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    Require(file >= 0, "no temporary file");
    if (exists) {
        Require(fchown(file, facts.st_uid, facts.st_gid) == 0 && fchmod(file, facts.st_mode & 07777) == 0,
                "mode and owner");
    }
    Require(parts.size() <= IOV_MAX, "too many parts");
    for (std::size_t at = 0; at < parts.size();) {
        const ssize_t written = writev(file, &parts[at], static_cast<int>(parts.size() - at));
        Require(written > 0, "not written");
        for (auto left = static_cast<std::size_t>(written); left > 0;) {
            const std::size_t taken = std::min(left, parts[at].iov_len);
            parts[at].iov_base = static_cast<char*>(parts[at].iov_base) + taken;
            parts[at].iov_len -= taken;
            left -= taken;
            if (parts[at].iov_len == 0) ++at;
        }
        while (at < parts.size() && parts[at].iov_len == 0) ++at;
    }
    Require(fsync(file) == 0 && close(file) == 0, "not flushed");
    const int directory = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Require(directory >= 0 && rename(temporary.c_str(), path.c_str()) == 0, "not renamed");
    Require(fsync(directory) == 0 && close(directory) == 0, "folder not flushed");
}

iovec Part(const char* begin, std::size_t size) {
    return {const_cast<char*>(begin), size};
}

/// Looks once for what a killed program has left.
void LookIntoFolder(const std::string& folder) {
    DIR* const names = opendir(folder.c_str());
    Require(names != nullptr, "no folder");
    for (const dirent* name = readdir(names); name != nullptr; name = readdir(names)) {
        Require(!std::string_view(name->d_name).ends_with(".limit"), "left over");
    }
    closedir(names);
}

}  // namespace

void UpsertAtTheLimit(const std::string& path, const std::vector<Upsert>& upserts) {
    const std::string folder = path.substr(0, path.rfind('/'));
    const std::string lockPath = path + ".lock";
    struct stat facts {};
    struct stat named {};
    const int lock = open(lockPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    Require(lock >= 0 && flock(lock, LOCK_EX | LOCK_NB) == 0, "no lock");
    Require(fstat(lock, &facts) == 0 && lstat(lockPath.c_str(), &named) == 0 && facts.st_ino == named.st_ino,
            "another lock");
    LookIntoFolder(folder);

    Require(lstat(path.c_str(), &named) == 0, "no file");
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    Require(file >= 0 && fstat(file, &facts) == 0, "not read");
    const auto size = static_cast<std::size_t>(facts.st_size);
    const std::unique_ptr<char[]> bytes(new char[size + 1]);
    std::size_t have = 0;
    for (;;) {
        const ssize_t count = read(file, bytes.get() + have, size + 1 - have);
        Require(count >= 0, "not read");
        if (count == 0) break;
        have += static_cast<std::size_t>(count);
    }
    close(file);

    const std::string_view old(bytes.get(), have);
    const std::vector<Change> changes = Pass(old, upserts).Changes();
    Replace(folder, path + ".bak", {Part(old.data(), old.size())});
    std::vector<iovec> parts;
    std::size_t done = 0;
    for (const Change& change : changes) {
        parts.push_back(Part(old.data() + done, change.at - done));
        parts.push_back(Part(change.text.data(), change.text.size()));
        done = change.at + change.length;
    }
    parts.push_back(Part(old.data() + done, old.size() - done));
    if (!changes.empty()) Replace(folder, path, std::move(parts));

    Require(unlink(lockPath.c_str()) == 0 && close(lock) == 0, "not unlocked");
}

}  // namespace ventlock::bench
