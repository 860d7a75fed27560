#pragma once

// One line to standard error in the unit kit's log format
// ("<date> <program>[<pid>]: <text>"); the record script appends it to the kit log.
void unitLog(const char *format, ...) __attribute__((format(printf, 1, 2)));
