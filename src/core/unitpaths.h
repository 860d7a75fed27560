#pragma once

#include <QString>

// The one place that turns a path of the unit ("/opt/hbi/...", "/dev/ttyAMA1",
// "/media/...") into the path this process must open. On the unit it is the
// path itself; with $DUCTLINE_ROOT set (the simulated unit, tests) the root is
// put in front, so the whole program can run against a tree of files.
QString unitPath(const QString &absolutePath);

// A script of the unit's own, by file name: "/opt/hbi/bin/<name>" resolved.
QString unitScriptPath(const QString &name);

// The root prefix in use, empty on the unit.
QString unitRoot();

// Removes the root prefix again, for texts that name a unit path to the operator or a log.
QString unitPathWithoutRoot(const QString &resolvedPath);
