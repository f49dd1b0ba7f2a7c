// What differs between a build with a desktop and one without.
#ifndef DEMO_PLATFORM_H
#define DEMO_PLATFORM_H

#include <cstdio>
#include <filesystem>
#include <vector>

namespace demo {

struct Options;

// The arguments of the command line, in full Unicode, without the program's own name.
std::vector<std::filesystem::path> CommandLine(int count, char** arguments);

// Null if the file can't be made. Line ends are written as they are.
std::FILE* OpenForWriting(const std::filesystem::path& file);

// Opens the window and stays until it is closed. Result: the exit status of the program.
int RunDesktop(const Options& options);

}  // namespace demo

#endif
