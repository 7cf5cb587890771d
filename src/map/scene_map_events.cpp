#include "map/scene_map_events.h"

#include "forms/app.h"

namespace tos {

void btnSceneMap_Click(App& app)
{
    app.sceneMap.visible = true;
    app.sceneMap.formView.Notify();
}

void ConnectSceneMapEvents(App& app)
{
    app.main.btnSceneMap.Click.Connect([&app] { btnSceneMap_Click(app); });
}

} // namespace tos
