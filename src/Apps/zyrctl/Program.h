#pragma once

namespace zyr_ctl
{

/// What the program does, from its command line to its exit status. What is secret on the command line is
/// blotted out there.
int runProgram(int argc, char** argv);

} // namespace zyr_ctl
