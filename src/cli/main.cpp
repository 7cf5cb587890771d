#include <iostream>

#include "cli/commands.h"

int main(int argc, char** argv)
{
    return tos::cli::Run(argc, argv, std::cout, std::cerr);
}
