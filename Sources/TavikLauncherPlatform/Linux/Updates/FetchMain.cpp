// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/FetchProgram.h>

int main(int argc, char** argv)
{
    return Tavik::FetchProgram::run(argc, argv);
}
