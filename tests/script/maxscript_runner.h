#pragma once

#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace tos::test {

// A small MAXScript interpreter for the statements the two script styles use,
// with MAXScript's own rules for string literals and for finding a node by a plain
// path name (no wildcards: no script writes them), and a scene of nodes that only
// know where they stand. It is the tests' stand-in for 3ds Max: a script it cannot
// run is one 3ds Max would stop at.
struct MaxNode {
    std::string name;
    std::array<double, 3> pos{0, 0, 0};
    std::array<double, 3> scale{1, 1, 1};
    std::array<double, 9> rotation{1, 0, 0, 0, 1, 0, 0, 0, 1}; // row-major, world axes
    int mesh = 0;                                              // shared by instances
    bool selected = false;
    bool madeWithUndoOff = false;
};

// Where 3ds Max stopped: the script's line (1-based) and why.
struct MaxScriptError : std::runtime_error {
    MaxScriptError(int line, const std::string& why)
        : std::runtime_error("line " + std::to_string(line) + ": " + why), line(line)
    {
    }
    int line;
};

class MaxScene {
public:
    // The .max files 3ds Max can merge, by path (compared without regard to
    // case), each with the names of its objects.
    std::map<std::string, std::vector<std::string>> library;
    std::vector<MaxNode> nodes; // in the order they were made
    std::vector<std::string> messageBoxes;

    // Runs the lines of a script; throws MaxScriptError where 3ds Max would stop.
    void Run(const std::vector<std::string>& lines);
};

} // namespace tos::test
