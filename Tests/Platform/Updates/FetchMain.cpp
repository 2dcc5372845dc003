// SPDX-License-Identifier: MIT
#include "UpdateServer.h"
#include <TavikLauncherPlatform/Linux/Updates/FetchProgram.h>

int main(int argc, char** argv)
{
    Tavik::Test::UpdateServer::trustAsTold();
    return Tavik::FetchProgram::run(argc, argv);
}
