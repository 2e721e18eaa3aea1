#pragma once

// True when another copy of the program already runs on this machine. The first call takes the
// machine's lock and keeps it for the life of the process; the lock follows the machine folder,
// so that tests and the demo with their own folders don't see each other.
bool PrevInstance();
