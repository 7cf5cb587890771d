#include "shell/process_command.h"

#include "shell/app.h"

namespace tos {

void ConnectProcessEvents(App& app)
{
    (void)app;
}

} // namespace tos
