#pragma once

#include <string>

namespace ventlock {

/// The clipboard's text.
class IClipboard {
 public:
    virtual ~IClipboard() = default;

    /// Empties the clipboard and puts the text there; "" leaves an empty text.
    /// @throws RunTimeError 521 when another program holds the clipboard.
    virtual void SetText(const std::string& text) = 0;

    /// The text, "" when the clipboard holds none.
    /// @throws RunTimeError 521 when another program holds the clipboard.
    virtual std::string Text() = 0;
};

}  // namespace ventlock
