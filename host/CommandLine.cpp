#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>
#include <vector>

#include "Convert.h"
#include "Info.h"
#include "ListParams.h"
#include "LiveCommand.h"
#include "Numbers.h"
#include "PanelCommand.h"
#include "Programs.h"
#include "Render.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr const char* kVersion = "tessel8 1.6.1 build 349";
constexpr Range kTempo{20, 999};   // BPM
constexpr Range kBlock{1, 65536};  // frames
constexpr Range kSeconds{0, 86400};

/// Options as they were typed; numbers are read by our own functions, whose messages name the
/// option and its range.
struct Typed {
    RenderOptions render;
    PanelOptions panel;
    LiveOptions live;
    bool noConnect = false;
    bool noPanel = false;
    std::vector<std::string> clicks;
    std::string seconds;
    std::string tempo;
    std::string tail = "silent";
    std::string block = "512";
    std::string format = "float";
    std::string plugin;
    std::string infoFile;
    std::string programFile;
    std::string convertedFile;
    bool listParams = false;
    bool listPrograms = false;
};

void addPlugin(CLI::App& command, Typed& typed) {
    command.add_option("--plugin", typed.plugin, "Plug-in file in place of the own one")
        ->type_name("FILE");
}

void addProgramChoice(CLI::App& command, ProgramChoice& choice) {
    command.add_option("--bank", choice.bank, "Bank file with programs for the store (.vtb)")
        ->type_name("FILE");
    command
        .add_option("--program", choice.program,
                    "A stored program, by number (0 to 139) or name; --set changes it")
        ->type_name("N|NAME");
    command
        .add_option("--preset", choice.preset,
                    "Preset file whose program takes the place of the current one (.vtp)")
        ->type_name("FILE");
    command
        .add_option("--set", choice.settings,
                    "A parameter, by name or #index, and its value; may be given many times")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
}

CLI::App* addRender(CLI::App& app, Typed& typed) {
    CLI::App* command = app.add_subcommand("render", "Send an audio file through the effect");
    command->add_option("IN", typed.render.input, "Audio file, one or two channels")
        ->type_name("FILE")
        ->required();
    command->add_option("OUT", typed.render.output, "Audio file to write, its kind by its ending")
        ->type_name("FILE")
        ->required();
    addProgramChoice(*command, typed.render.choice);
    command
        ->add_option("--tempo", typed.tempo,
                     "Tempo of the song, 20 to 999; with --midi until that file tells another one")
        ->type_name("BPM");
    command
        ->add_option("--midi", typed.render.midi,
                     "MIDI file that plays along: its channel messages go to the effect, its "
                     "tempos are the song's (120 BPM until --tempo or the file tells one)")
        ->type_name("FILE");
    command
        ->add_option(
            "--tail", typed.tail,
            "Goes on after the input for so long, 0 to 3600, or until silent, at most 60 s")
        ->type_name("SECONDS|silent")
        ->capture_default_str();
    command->add_option("--block", typed.block, "Frames in a block, 1 to 65536")
        ->type_name("N")
        ->capture_default_str();
    command
        ->add_option("--format", typed.format,
                     "Samples of the output: 32-bit float, or the same kind as the input")
        ->type_name("float|input")
        ->capture_default_str();
    addPlugin(*command, typed);
    return command;
}

CLI::App* addList(CLI::App& app, Typed& typed) {
    CLI::App* command = app.add_subcommand("list", "List what the effect offers");
    command->add_flag("--params", typed.listParams, "All parameters with their texts");
    command->add_flag("--programs", typed.listPrograms, "All stored programs with their names");
    addPlugin(*command, typed);
    return command;
}

CLI::App* addInfo(CLI::App& app, Typed& typed) {
    CLI::App* command = app.add_subcommand("info", "Tell about any VST 2.4 plug-in");
    command->add_option("PLUGIN", typed.infoFile, "Plug-in file")->type_name("FILE")->required();
    return command;
}

CLI::App* addPanel(CLI::App& app, Typed& typed) {
    CLI::App* command = app.add_subcommand(
        "panel", "Show the effect's panel in a window while sound runs through, unheard");
    addProgramChoice(*command, typed.panel.choice);
    command
        ->add_option("--input", typed.panel.input,
                     "Audio file that runs through again and again, in place of silence")
        ->type_name("FILE");
    command
        ->add_option("--click", typed.clicks,
                     "Clicks at this pixel of the panel once it is open; may be given many times")
        ->type_name("X,Y")
        ->allow_extra_args(false);
    command
        ->add_option("--screenshot", typed.panel.screenshot,
                     "Writes a picture of the panel (PNG) and ends, a second after the last click")
        ->type_name("FILE");
    command
        ->add_option("--seconds", typed.seconds,
                     "Ends by itself so long after the last click, 0 to 86400")
        ->type_name("SECONDS");
    addPlugin(*command, typed);
    return command;
}

CLI::App* addLive(CLI::App& app, Typed& typed) {
    CLI::App* command =
        app.add_subcommand("live", "Run the effect on JACK or PipeWire, with its panel");
    addProgramChoice(*command, typed.live.choice);
    command->add_option("--name", typed.live.name, "Name of the JACK client")
        ->type_name("NAME")
        ->capture_default_str();
    CLI::Option* const connect =
        command->add_flag("--connect", typed.live.connect,
                          "Connects with the first two capture and playback ports, as without it");
    command->add_flag("--no-connect", typed.noConnect, "Leaves connecting to others")
        ->excludes(connect);
    command
        ->add_option("--tempo", typed.tempo,
                     "Tempo of the song, 20 to 999, as long as JACK's transport tells none")
        ->type_name("BPM");
    command->add_flag("--no-panel", typed.noPanel, "Leaves out the panel");
    command->add_option("--seconds", typed.seconds, "Ends by itself after so long, 0 to 86400")
        ->type_name("SECONDS");
    addPlugin(*command, typed);
    return command;
}

CLI::App* addConvert(CLI::App& app, Typed& typed) {
    CLI::App* command = app.add_subcommand(
        "convert", "Write a preset or bank file of any form and byte order in that of today");
    command->add_option("IN", typed.programFile, "Preset or bank file")
        ->type_name("FILE")
        ->required();
    command
        ->add_option("OUT", typed.convertedFile,
                     "File to write: .vtp for a preset, .vtb for a bank, as IN holds one")
        ->type_name("FILE")
        ->required();
    return command;
}

CLI::App* addPrograms(CLI::App& app, Typed& typed) {
    CLI::App* command =
        app.add_subcommand("programs", "List the names of the programs in a preset or bank file");
    command->add_option("FILE", typed.programFile, "Preset or bank file")
        ->type_name("FILE")
        ->required();
    return command;
}

SampleFormat parseFormat(const std::string& text) {
    if (text == "float") {
        return SampleFormat::floatingPoint;
    }
    if (text == "input") {
        return SampleFormat::asInput;
    }
    throw UserError("--format: " + inQuotes(text) + " is neither float nor input");
}

RenderOptions renderOptions(const Typed& typed, const CLI::App& command) {
    RenderOptions options = typed.render;
    options.plugin = typed.plugin;
    if (command.count("--tempo") != 0) {
        options.tempo = parseNumber(typed.tempo, kTempo, "--tempo");
    }
    options.tail = parseTail(typed.tail);
    options.blockFrames = parseWholeNumber(typed.block, kBlock, "--block");
    options.format = parseFormat(typed.format);
    return options;
}

PanelOptions panelOptions(const Typed& typed, const CLI::App& command) {
    PanelOptions options = typed.panel;
    options.plugin = typed.plugin;
    for (const std::string& click : typed.clicks) {
        options.clicks.push_back(parseClick(click));
    }
    if (command.count("--seconds") != 0) {
        options.seconds = parseNumber(typed.seconds, kSeconds, "--seconds");
    }
    return options;
}

LiveOptions liveOptions(const Typed& typed, const CLI::App& command) {
    LiveOptions options = typed.live;
    options.connect = !typed.noConnect;
    options.panel = !typed.noPanel;
    options.plugin = typed.plugin;
    if (command.count("--tempo") != 0) {
        options.tempo = parseNumber(typed.tempo, kTempo, "--tempo");
    }
    if (command.count("--seconds") != 0) {
        options.seconds = parseNumber(typed.seconds, kSeconds, "--seconds");
    }
    return options;
}

}  // namespace

int runCommandLine(int argc, char** argv) {
    Typed typed;
    CLI::App app("Eight-tap stereo delay on the command line", "tessel8");
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(0, 1);  // none is an error too, but one with a better message below
    const CLI::App* const renderCommand = addRender(app, typed);
    const CLI::App* const panelCommand = addPanel(app, typed);
    const CLI::App* const liveCommand = addLive(app, typed);
    const CLI::App* const listCommand = addList(app, typed);
    const CLI::App* const infoCommand = addInfo(app, typed);
    const CLI::App* const convertCommand = addConvert(app, typed);
    const CLI::App* const programsCommand = addPrograms(app, typed);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return app.exit(error);  // --help and --version
        }
        throw UserError(error.what());
    }
    if (renderCommand->parsed()) {
        render(renderOptions(typed, *renderCommand));
    } else if (panelCommand->parsed()) {
        showPanel(panelOptions(typed, *panelCommand));
    } else if (liveCommand->parsed()) {
        playLive(liveOptions(typed, *liveCommand));
    } else if (listCommand->parsed()) {
        if (typed.listParams == typed.listPrograms) {
            throw UserError("list: say what to list: --params or --programs");
        }
        typed.listParams ? listParams(typed.plugin) : listPrograms(typed.plugin);
    } else if (infoCommand->parsed()) {
        printInfo(typed.infoFile);
    } else if (convertCommand->parsed()) {
        convert(typed.programFile, typed.convertedFile);
    } else if (programsCommand->parsed()) {
        listFilePrograms(typed.programFile);
    } else {
        throw UserError(
            "say what to do: render, panel, live, list, programs, convert or info; --help tells "
            "more");
    }
    if (std::fflush(stdout) != 0) {
        throw UserError("cannot write to the standard output");
    }
    return 0;
}

}  // namespace tessel8::host
