#pragma once

#include <QMetaType>
#include <QString>

namespace WinCan {
namespace Web {

// One project as the service lists it.
class CProjectInfo
{
public:
    QString id;
    QString name;
    int files = 0;
};

} // namespace Web
} // namespace WinCan

Q_DECLARE_METATYPE(WinCan::Web::CProjectInfo)
