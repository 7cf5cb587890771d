#pragma once

#include <memory>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "shell/app.h"

namespace tos::test {

struct SceneModel {
    std::string value;    // key SLT; "" leaves the key out
    std::string position; // key Position; "" leaves the key out
    long long number = 0; // section number; 0 = one more than the model before
};

// Scene text with CR LF line ends. An empty width, scale or count leaves that key out.
std::string SceneText(const std::vector<SceneModel>& models, const std::string& count = "auto",
                      const std::string& width = "5", const std::string& scale = "3.0");

// A started program in a scratch folder that is also the program's folder.
class LoadFixture {
public:
    LoadFixture();
    // Writes the catalogue file beside the program and starts again.
    void Restart(const std::string& catalogue);
    // Writes <name>.prj and, unless scene is null, <name>.scn; chooses the project.
    void Load(const std::string& name, const char* scene);
    void Load(const std::string& scene) { Load("Scene", scene.c_str()); }

    static std::vector<std::string> Rows(const ListBox& list) { return list.Rows(); }
    std::vector<std::string> Messages() const { return platform.Texts(); }

    ScratchDir dir;
    FakePlatform platform;
    std::unique_ptr<App> app;
};

} // namespace tos::test
