#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "project/scene_fixture.h"

namespace tos::test {

using Rows = std::vector<std::string>;
using Step = std::function<void(LoadFixture&)>;

// One hostile input: how the scene is made, what the load and the Process of the
// first object row say, and what becomes of the script.
struct HostileCase {
    const char* what;
    Step makeScene;
    Rows loadMessages; // %scn stands for the scene's path
    Rows objects;
    Step beforeProcess; // may be empty
    Rows processMessages;
    const char* placed; // the first object's position in 3ds Max, whole numbers
    bool saved;         // the script file of the first object row exists after
    Step cleanUp = {};  // undoes what would keep the scratch folder from going
};

extern const std::string kLook;
extern const std::string kModel1;
extern const std::string kNoCount;
extern const Rows kNoEnvironment;

// A scene head whose StaticModels section gives this count.
std::string Counted(const std::string& count);

// Writes the text as the scene.
Step WriteScene(std::string text);

// A scene with NUL bytes in keys and values; read byte for byte, its one object is
// kNulObject, a name no file can have.
std::string NulScene();
extern const std::string kNulObject;
extern const Rows kBadFileName;

// Rows that only this system can set up: devices, pipes, permissions, locks.
std::vector<HostileCase> PlatformCases();

// The most memory the process has held so far, in MB.
long PeakMegabytes();

} // namespace tos::test
