#pragma once

// The program's export, which the engine calls at its start: makes the program's plug-ins, four materials and
// three types of mesh files. They live until the process ends; a second call makes no more.
extern "C" __attribute__((visibility("default"))) void NoxGetPlugins();
