#include "ui/ToolkitTexts.h"

namespace ventlock {

std::unique_ptr<wxTranslationsLoader> ToolkitTexts() {
    return std::make_unique<wxResourceTranslationsLoader>();
}

}  // namespace ventlock
