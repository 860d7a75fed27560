#pragma once

// Runs the unit's clear_cache.sh and waits for its end: the report's pictures and
// parts must be on the medium before the next step reads them back.
void runClearCacheAndWait();
