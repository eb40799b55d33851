#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ventlock {

/// One code page by the host's own tables, both ways between its bytes and UTF-8. Not for use by two threads
/// at once.
class HostCodePage {
 public:
    HostCodePage() = default;
    virtual ~HostCodePage() = default;
    HostCodePage(const HostCodePage&) = delete;
    HostCodePage& operator=(const HostCodePage&) = delete;

    /// Appends the text of `bytes` from `position` on and moves `position` to the end, or to the first byte
    /// that stands for nothing in the page: then False.
    virtual bool ToUtf8(std::string_view bytes, std::size_t& position, std::string& text) = 0;

    /// Appends the bytes of `utf8` from `position` on and moves `position` to the end, or to the first
    /// character that the page lacks: then False. The host may take some characters for similar ones; the way
    /// back tells them.
    virtual bool FromUtf8(std::string_view utf8, std::size_t& position, std::string& bytes) = 0;
};

/// The page of this number, or nothing when the host does not know it. @throws RunTimeError 7
std::unique_ptr<HostCodePage> OpenHostCodePage(int number);

/// The number of the page of files that say nothing.
int DefaultCodePage();

}  // namespace ventlock
