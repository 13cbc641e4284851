#include "Panel.h"

#include <string>

#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

std::string titleFor(const Plugin& plugin, const std::filesystem::path& file) {
    if ((plugin.record().flags & effFlagsHasEditor) == 0) {
        throw UserError("the plug-in " + file.string() + " has no panel");
    }
    const std::string name = plugin.text(effGetEffectName);
    return name.empty() ? printable(file.filename().string()) : name;
}

}  // namespace

Panel::Opened::Opened(const Plugin& plugin, const PanelWindow& window) : plugin_(plugin) {
    if (plugin.dispatch(effEditOpen, 0, 0, window.handle()) == 0) {
        throw UserError("the plug-in cannot open its panel");
    }
}

/// Only an open panel is sure to know its size.
ERect Panel::Opened::rect() const {
    ERect* rect = nullptr;
    plugin_.dispatch(effEditGetRect, 0, 0, &rect);
    if (rect == nullptr || rect->right <= rect->left || rect->bottom <= rect->top) {
        throw UserError("the plug-in does not tell the size of its panel");
    }
    return *rect;
}

Panel::Panel(const Plugin& plugin, const std::filesystem::path& file)
    : window_(titleFor(plugin, file)), opened_(plugin, window_) {
    const ERect rect = opened_.rect();
    window_.show(uint16_t(rect.right - rect.left), uint16_t(rect.bottom - rect.top));
}

bool Panel::idle() {
    if (!window_.processEvents()) {
        return false;
    }
    opened_.idle();
    return true;
}

}  // namespace tessel8::host
