#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

// The information forms find the survey-data key of a field in its dynamic
// property "TAG"; the tagged widget classes share these two helpers.
namespace WidgetTag {

inline constexpr char kProperty[] = "TAG";

inline void set(QObject *widget, const QString &tag)
{
    widget->setProperty(kProperty, tag);
}

inline QString get(const QObject *widget)
{
    return widget->property(kProperty).toString();
}

} // namespace WidgetTag
