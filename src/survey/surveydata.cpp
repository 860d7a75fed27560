#include "survey/surveydata.h"

#include "core/consolesettings.h"

namespace {

QString groupKey(const QString &group, const QString &key)
{
    return group + QLatin1Char('/') + key;
}

} // namespace

QString SurveyData::getFromGroup(const QString &group, const QString &key)
{
    return ConsoleSettings().value(groupKey(group, key), QString()).toString();
}

void SurveyData::setInGroup(const QString &group, const QString &key, const QString &value)
{
    ConsoleSettings().setValue(groupKey(group, key), value);
}

void SurveyData::clearGroup(const QString &group)
{
    ConsoleSettings settings;
    settings.beginGroup(group);
    for (const QString &key : settings.childKeys())
        settings.setValue(key, QString());
    settings.endGroup();
    settings.sync();
}

QStringList SurveyData::listGroup(const QString &group, const QStringList &order)
{
    ConsoleSettings settings;
    settings.beginGroup(group);
    QStringList filled;
    for (const QString &key : settings.childKeys()) {
        if (!settings.value(key).toString().trimmed().isEmpty())
            filled << key;
    }
    settings.endGroup();

    QStringList listed;
    for (const QString &name : order) {
        for (const QString &key : qAsConst(filled)) {
            if (key.contains(name))
                listed << key;
        }
    }
    return listed;
}
