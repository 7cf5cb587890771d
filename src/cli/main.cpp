#include <iostream>

#include "cli/commands.h"
#include "support/system.h"

int main(int argc, char** argv)
{
    tos::UseBinaryStandardStreams();
    return tos::cli::Run(argc, argv, std::cout, std::cerr);
}
