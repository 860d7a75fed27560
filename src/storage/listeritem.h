#pragma once

#include <QMetaType>
#include <QString>

// One row of a media browser level: what the operator reads and where it lies.
struct ListerItem
{
    QString name;
    QString path;
};
Q_DECLARE_METATYPE(ListerItem)
