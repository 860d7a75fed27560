#pragma once

class StorageBase;

// A picture of the whole screen, read from the framebuffer, filed on the first
// USB stick as "screenshots/<date and time>.png". Without a stick, or with a
// framebuffer of another size than the console's, nothing is written.
class Screenshot
{
public:
    static void take(const StorageBase *storage);
};
