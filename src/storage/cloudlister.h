#pragma once

#include "storage/lister.h"

// A level of the cloud site in the media browser, read from the cloud index
// rather than from the site: the sites, or the surveys of one site, as the last
// scan or upload left them.
class CloudLister : public Lister
{
    Q_OBJECT
public:
    // PATH is "<host>/corvane" for the sites, "<host>/corvane/<site>" for its surveys.
    CloudLister(const QString &path, const QStringList &indexed, QObject *parent = nullptr);
};
