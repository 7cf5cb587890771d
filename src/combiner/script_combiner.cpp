#include "combiner/script_combiner.h"

#include "shell/app.h"

namespace tos {

void ConnectCombinerEvents(App& app)
{
    (void)app;
}

} // namespace tos
