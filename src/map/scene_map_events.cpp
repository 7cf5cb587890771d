#include "map/scene_map_events.h"

#include <string>

#include "forms/app.h"
#include "map/scene_map.h"
#include "map/svg_writer.h"
#include "support/conversions.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

void btnSceneMap_Click(App& app)
{
    if (!app.sceneMap.drawnInWindow) {
        OpenSceneMapFile(app);
        return;
    }
    app.sceneMap.visible = true;
    app.sceneMap.formView.Notify();
}

std::string SceneMapFile(const App& app)
{
    return app.state.ScriptBasePath + "_Map.svg";
}

void WriteSceneMapFile(App& app, const std::string& path)
{
    const std::string svg = SvgDocument(SceneMapper(app).Build());
    // The file gets the line ends of the scripts beside it, the last line's too.
    std::string text;
    text.reserve(svg.size() + svg.size() / 16);
    for (const char c : svg) {
        if (c == '\n')
            text += '\r';
        text += c;
    }
    if (!svg.empty() && svg.back() != '\n')
        text += "\r\n";
    ReplaceFileAtomically(path, text);
}

void OpenSceneMapFile(App& app)
{
    if (app.state.ScriptBasePath.empty()) {
        app.Message("Scene Map needs a loaded project.");
        return;
    }
    const std::string file = SceneMapFile(app);
    if (auto failure = Trap([&] { WriteSceneMapFile(app, file); })) {
        app.Message("The scene map could not be written to " + file + ": " +
                    failure->Description() + " (" + IntegerToText(failure->Number()) +
                    "). A former picture of that name is as it was.");
        return;
    }
    if (!app.platform.OpenDocument(file))
        app.Message("The scene map was written to " + file +
                    ", but no program could open it. Open it with a web browser.");
}

void ConnectSceneMapEvents(App& app)
{
    app.main.btnSceneMap.Click.Connect([&app] { btnSceneMap_Click(app); });
}

} // namespace tos
