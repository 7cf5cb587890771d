#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "cli/cli_session.h"
#include "cli/command_context.h"
#include "forms/app.h"
#include "map/scene_map.h"
#include "map/svg_writer.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos::cli {

namespace {

struct MapOptions {
    LoadOptions load;
    std::string selection;
    std::string output;
};

// The whole picture is made first and replaces the file in one step, so a failed
// write leaves the former picture whole.
int RunMap(const MapOptions& options, CommandContext& context)
{
    CliPlatform platform(context);
    tos::App app(platform);
    StartAndLoad(app, platform, options.load);
    if (!options.selection.empty())
        app.main.comboSelectObject.SetText(options.selection);
    const SceneMap map = SceneMapper(app).Build();
    const std::string svg = SvgDocument(map);

    if (auto failure = Trap([&] { ReplaceFileAtomically(options.output, svg); })) {
        context.err << "tos-cli: cannot write " << options.output << ": " << failure->Description()
                    << " (" << failure->Number() << ")\n";
        return kExitMessages;
    }
    context.out << options.output << ": " << map.models.size() << " models, "
                << PlacementCount(map.placements.size()) << '\n';
    return ExitStatus(platform);
}

} // namespace

void AddMapCommand(CLI::App& cli, CommandContext& context)
{
    auto options = std::make_shared<MapOptions>();
    CLI::App* sub = cli.add_subcommand(
        "map", "Load a project as the window does and draw the scene map as an SVG file: every "
               "model, the main tile window, and where the copies of SELECTION will stand");
    AddLoadOptions(*sub, options->load);
    sub->add_option("SELECTION", options->selection,
                    "An object row or option row of the object list; none draws the scene alone");
    sub->add_option("--output,-o", options->output, "The SVG file to write")
        ->type_name("FILE.svg")
        ->required();
    sub->callback([&context, options] {
        context.action = [&context, options] { return RunMap(*options, context); };
    });
}

} // namespace tos::cli
