// `gpx session`: opens an editing session on a file, applies steps in order and
// prints the session's state, as the editor would show it after those steps.

#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/editing/editing_session.h"
#include "tools/cli/gpx_edit_support.h"
#include "tools/cli/track_json.h"

#include <functional>
#include <iostream>
#include <memory>

namespace trackloom::cli {
namespace {

struct SessionRun {
    GPXEditingSession& session;
    /// Every file read, none of which may be overwritten.
    std::vector<std::string>& opened;
};
using Step = std::function<void(SessionRun&)>;

/// The words of a step; double quotes group words with blanks ("Teil A").
std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    bool quoted = false;
    bool inWord = false;
    for (const char c : text) {
        if (c == '"') {
            quoted = !quoted;
            inWord = true;
        } else if (!quoted && (c == ' ' || c == '\t')) {
            if (inWord) {
                words.push_back(std::move(word));
                word.clear();
            }
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) {
        words.push_back(std::move(word));
    }
    return words;
}

[[noreturn]] void malformed(const std::string& step) {
    throw CLI::ValidationError("--do", "unbekannter oder unvollständiger Schritt: " + step);
}

template <typename T> T required(const std::optional<T>& value, const std::string& step) {
    if (!value) {
        malformed(step);
    }
    return *value;
}

std::optional<Instant> instant(const std::string& text) {
    return GPXTrack::parseTime(text);
}

/// What a STEP does to the session; a malformed step is a usage error.
Step parsedStep(const std::string& text) {
    const auto words = wordsOf(text);
    const auto arity = words.empty() ? 0 : words.size() - 1;
    const auto& name = words.empty() ? text : words[0];
    const auto word = [&](std::size_t index) { return words[index]; };
    const auto index = [&](std::size_t position) {
        return required(parseInteger(words[position]), text);
    };
    if (name == "undo" && arity == 0) {
        return [](SessionRun& run) { run.session.undo(); };
    }
    if (name == "redo" && arity == 0) {
        return [](SessionRun& run) { run.session.redo(); };
    }
    if (name == "merge" && arity == 0) {
        return [](SessionRun& run) { run.session.mergeSegments(); };
    }
    if (name == "generate-speed" && arity == 2) {
        const auto start = required(instant(word(1)), text);
        const auto kmh = required(parseDecimal(word(2)), text);
        return [=](SessionRun& run) { run.session.generate(start, kmh); };
    }
    if (name == "generate-end" && arity == 2) {
        const auto start = required(instant(word(1)), text);
        const auto end = required(instant(word(2)), text);
        return [=](SessionRun& run) { run.session.generate(start, end); };
    }
    if (name == "split" && arity == 3) {
        return [at = index(1), first = word(2), second = word(3)](SessionRun& run) {
            run.session.split(at, first, second);
        };
    }
    if (name == "delete" && arity == 1) {
        return [at = index(1)](SessionRun& run) { run.session.deletePoint(at); };
    }
    if (name == "move" && arity == 2) {
        const auto to = required(parseCoordinate(word(2)), text);
        return [at = index(1), to](SessionRun& run) { run.session.move(at, to); };
    }
    if (name == "insert" && arity == 2) {
        const auto coordinates = required(parseCoordinates(word(2)), text);
        return
            [at = index(1), coordinates](SessionRun& run) { run.session.insert(coordinates, at); };
    }
    if (name == "trim-start" && arity == 1) {
        return [at = index(1)](SessionRun& run) { run.session.trimStart(at); };
    }
    if (name == "trim-end" && arity == 1) {
        return [at = index(1)](SessionRun& run) { run.session.trimEnd(at); };
    }
    if (name == "append" && arity == 1) {
        return [file = word(1)](SessionRun& run) {
            run.opened.push_back(file);
            run.session.append(*openTrack(file));
        };
    }
    if (name == "air-routes" && arity == 1 && (word(1) == "hide" || word(1) == "show")) {
        return
            [hide = word(1) == "hide"](SessionRun& run) { run.session.setRemovesAirRoutes(hide); };
    }
    malformed(text);
}

std::string state(const GPXEditingSession& session, std::optional<std::size_t> failedStep) {
    JsonWriter json;
    json.beginObject()
        .key("canUndo")
        .value(session.canUndo())
        .key("canRedo")
        .value(session.canRedo())
        .key("canMerge")
        .value(session.canMerge())
        .key("hasGeneratedTimes")
        .value(session.hasGeneratedTimes())
        .key("removesAirRoutes")
        .value(session.removesAirRoutes());
    json.key("track");
    writeTrack(json, *session.track(), {.points = true});
    if (failedStep) {
        json.key("failedStep").value(*failedStep);
    }
    json.endObject();
    return json.takeText();
}

} // namespace

void addGpxSessionCommand(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file;
        bool hideAirRoutes = false;
        std::vector<std::string> steps;
        std::string out;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand("session", "Bearbeitet einen Track Schritt für Schritt");
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    command->add_flag("--hide-air-routes", arguments->hideAirRoutes,
                      "Luftlinien-Routen ausblenden");
    command->add_option("--do", arguments->steps, "Schritt")->required();
    auto* out = command->add_option("-o", arguments->out, "Ausgabedatei des angezeigten Tracks");
    command->callback([arguments, &registry, out] {
        std::vector<Step> steps;
        for (const auto& text : arguments->steps) {
            steps.push_back(parsedStep(text));
        }
        registry.choose([arguments, steps, writes = !out->empty()] {
            std::vector<std::string> opened{arguments->file};
            GPXEditingSession session(openTrack(arguments->file), arguments->hideAirRoutes);
            SessionRun run{session, opened};
            for (std::size_t index = 0; index < steps.size(); ++index) {
                try {
                    steps[index](run);
                } catch (const GPXError&) {
                    // The state before the refused step is still the result.
                    std::cout << state(session, index) << '\n';
                    throw;
                }
            }
            if (writes) {
                saveTrack(*session.track(), arguments->out, opened);
            }
            return state(session, std::nullopt);
        });
    });
}

} // namespace trackloom::cli
