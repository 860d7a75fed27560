#pragma once

#include "storage/lister.h"

// The sites of one device: the folders under its "corvane" folder, newest first.
class SiteLister : public Lister
{
    Q_OBJECT
public:
    explicit SiteLister(const QString &path, QObject *parent = nullptr);
};
