#pragma once

namespace standin::outlook {

// Serves Outlook.Application until it quits: by its Quit method, or, when automation started it, a moment
// after the last reference has been released while no window is open. Returns the exit status.
int runServer(bool startedByAutomation);

// Enters the program in the registry, or removes it.
void registerProgram();
void unregisterProgram();

}  // namespace standin::outlook
