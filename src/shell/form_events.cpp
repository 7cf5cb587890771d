#include "shell/form_events.h"

#include "shell/app.h"

namespace tos {

void ConnectMainFormEvents(App& app)
{
    (void)app;
}

} // namespace tos
