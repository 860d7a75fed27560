#include "core/consoletranslator.h"

#include "core/unitpaths.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QTranslator>
#include <cstdio>

QTranslator *&ConsoleTranslator::current()
{
    static QTranslator *translator = nullptr;
    return translator;
}

QString &ConsoleTranslator::currentCode()
{
    static QString code;
    return code;
}

QString ConsoleTranslator::installedCode()
{
    return currentCode();
}

bool ConsoleTranslator::install(const QString &code)
{
    auto *next = new QTranslator(QCoreApplication::instance());
    if (!next->load(code, unitPath(QStringLiteral("/opt/hbi/languages/") + code), QString(), QString())) {
        qInfo().noquote() << "No translation for language" << code;
        delete next;
        return false;
    }
    if (QTranslator *former = current()) {
        QCoreApplication::removeTranslator(former);
        former->deleteLater();
    }
    QCoreApplication::installTranslator(next);
    current() = next;
    currentCode() = code;
    qInfo().noquote() << "Language" << code << "in force";
    return true;
}

bool ConsoleTranslator::installKeymap(const QString &code)
{
    const QString source = unitPath(QStringLiteral("/opt/hbi/languages/%1/keyboard.qmap").arg(code));
    if (!QFile::exists(source))
        return false;
    const QString target = unitPath(QStringLiteral("/opt/hbi/keyboard.qmap"));
    const QString staged = target + QStringLiteral(".new");
    QFile::remove(staged);
    // Copied beside the old map and renamed over it, so a pulled plug leaves one whole map.
    if (!QFile::copy(source, staged)
        || std::rename(QFile::encodeName(staged).constData(), QFile::encodeName(target).constData()) != 0) {
        qWarning().noquote() << "Could not put the key map of" << code << "in place";
        return false;
    }
    qInfo().noquote() << "Key map of" << code << "takes effect at the next start";
    return true;
}
