#include "platform/linux/DesktopTools.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "platform/FileBrowser.h"

namespace tessel8::x11 {

namespace {

struct Tool {
    std::string program;
    bool isKde;
};

bool runsKde() {
    const char* desktop = std::getenv("XDG_CURRENT_DESKTOP");
    return std::getenv("KDE_FULL_SESSION") ||
           (desktop && std::string_view(desktop).find("KDE") != std::string_view::npos);
}

/// The desktop's own tool, else the other one.
std::optional<Tool> installedTool() {
    const bool kde = runsKde();
    for (const bool wantsKde : {kde, !kde}) {
        const std::string program = findProgram(wantsKde ? "kdialog" : "zenity");
        if (!program.empty()) {
            return Tool{program, wantsKde};
        }
    }
    return std::nullopt;
}

/// Both tools read backslashes in a message as escapes.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '\\' ? "\\\\" : std::string(1, c);
    }
    return result;
}

}  // namespace

std::optional<Command> fileDialogCommand(const FileDialogSettings& settings, uint32_t above) {
    const auto tool = installedTool();
    if (!tool) {
        return std::nullopt;
    }
    const bool saves = settings.kind == FileDialogKind::Save;
    const std::string start =
        (std::filesystem::path(settings.folder) / (saves ? settings.defaultName : "")).string();
    const std::string pattern = withExtension("*", settings.extension);
    const std::string window = std::to_string(above);
    if (tool->isKde) {
        return Command{tool->program,
                       {"--title", settings.title, "--attach", window,
                        saves ? "--getsavefilename" : "--getopenfilename", start,
                        settings.typeName + " (" + pattern + ")"}};
    }
    Command command{
        tool->program,
        {"--file-selection", "--title=" + settings.title, "--filename=" + start,
         "--file-filter=" + settings.typeName + " | " + pattern, "--modal", "--attach=" + window}};
    if (saves) {
        command.arguments.insert(command.arguments.end(), {"--save", "--confirm-overwrite"});
    }
    return command;
}

std::optional<Command> messageCommand(const std::string& title, const std::string& text,
                                      uint32_t above) {
    const auto tool = installedTool();
    if (!tool) {
        return std::nullopt;
    }
    const std::string window = std::to_string(above);
    if (tool->isKde) {
        return Command{tool->program,
                       {"--title", title, "--attach", window, "--msgbox", escaped(text)}};
    }
    return Command{tool->program,
                   {"--info", "--no-markup", "--title=" + title, "--text=" + escaped(text),
                    "--modal", "--attach=" + window}};
}

}  // namespace tessel8::x11
