#include "ProgramChoice.h"

#include <algorithm>
#include <iterator>

#include "Programs.h"
#include "Store.h"

namespace tessel8::host {

namespace {

void chooseProgram(const ProgramChoice& choice, const Plugin& plugin) {
    if (choice.bank.empty() && !choice.program && choice.preset.empty()) {
        return;
    }
    Store store(plugin);
    if (!choice.bank.empty()) {
        store.loadBank(choice.bank);
        store.send(plugin);  // the effect tells the names of its programs
    }
    if (choice.program) {
        store.makeCurrent(Programs(plugin).find(*choice.program));
    }
    if (!choice.preset.empty()) {
        store.loadPreset(choice.preset);
    }
    store.send(plugin);
}

std::vector<Setting> parseSettings(const std::vector<std::string>& texts, const Plugin& plugin) {
    const Parameters parameters(plugin);
    std::vector<Setting> settings;
    std::transform(texts.begin(), texts.end(), std::back_inserter(settings),
                   [&](const std::string& text) { return parameters.parse(text); });
    return settings;
}

}  // namespace

std::vector<Setting> choose(const ProgramChoice& choice, const Plugin& plugin) {
    chooseProgram(choice, plugin);
    return parseSettings(choice.settings, plugin);
}

}  // namespace tessel8::host
