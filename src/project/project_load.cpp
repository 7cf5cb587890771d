#include "project/project_load.h"

#include "shell/app.h"

namespace tos {

void ConnectProjectEvents(App& app)
{
    (void)app;
}

} // namespace tos
