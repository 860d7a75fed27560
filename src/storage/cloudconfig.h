#pragma once

#include <QString>

// The cloud site's settings file: host, user name and password, the password
// in clear text as the unit has always kept it.
struct CloudConfig
{
    QString host;
    QString username;
    QString password;

    static QString fileName();
    // False, leaving this as it was, when the file is missing or not a cloud file.
    bool read(QString *error = nullptr);
    bool write() const;
};
