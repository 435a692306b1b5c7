#pragma once

// How long a connection that is opened from now on waits for another program's lock, in milliseconds,
// before the lock is reported. Three seconds, unless a test that is locked out on purpose shortens it.
int& lockWaitMs();
