#include "shell/events.h"

#include "combiner/script_combiner.h"
#include "project/project_load.h"
#include "forms/form_events.h"
#include "map/scene_map_events.h"
#include "shell/process_command.h"

namespace tos {

void ConnectEvents(App& app)
{
    ConnectMainFormEvents(app);
    ConnectProjectEvents(app);
    ConnectProcessEvents(app);
    ConnectCombinerEvents(app);
    ConnectSceneMapEvents(app);
}

} // namespace tos
