#include "Program.h"

int main(int argc, char** argv)
{
    return zyr_ctl::runProgram(argc, argv);
}
