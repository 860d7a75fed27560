#include "survey/wincan/cddatabase.h"

#include "core/singleton.h"
#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>

namespace {

const QString kDatabaseFile = QStringLiteral("/opt/hbi/var/cddb");
const QString kGroupPrefix = QStringLiteral("CD");
const QString kCodeKey = QStringLiteral("/code");
const QString kSentenceKey = QStringLiteral("/sentence");
// The number-appending search of getCode(int) has no end of its own.
constexpr int kMaxCodeTries = 64;
// Only strings are ever written here; one that starts with "@" is written "@@".
bool holdsSerialisedValue(const QByteArray &content)
{
    static const QRegularExpression serialised(QStringLiteral("=\\s*@Variant\\("));
    return serialised.match(QString::fromLatin1(content)).hasMatch();
}

QString groupName(int number)
{
    return kGroupPrefix + QString::number(number);
}

} // namespace

CDDatabase *CDDatabase::instance()
{
    static CDDatabase *theInstance = nullptr;
    return Singleton<CDDatabase>::instance(theInstance, unitPath(kDatabaseFile));
}

std::unique_ptr<QSettings> CDDatabase::openDatabase() const
{
    QFile file(m_db_file);
    if (file.open(QIODevice::ReadOnly) && holdsSerialisedValue(file.readAll())) {
        qWarning().noquote() << "Continuous-defect file" << m_db_file << "was not written by the console; cleared";
        file.close();
        QFile::remove(m_db_file);
    }
    return std::make_unique<QSettings>(m_db_file, QSettings::IniFormat);
}

CDDatabase::CDDatabase(QString path) : m_db_file(std::move(path))
{
    reset();
}

CDDatabase::~CDDatabase()
{
    reset();
}

int CDDatabase::addEntry(QString code, QString sentence)
{
    ++m_current_index;
    const std::unique_ptr<QSettings> db = openDatabase();
    db->beginGroup(groupName(m_current_index));
    db->setValue(QStringLiteral("code"), code);
    db->setValue(QStringLiteral("sentence"), sentence);
    db->endGroup();
    return 1;
}

int CDDatabase::removeEntry(int number)
{
    return removeEntry(groupName(number));
}

int CDDatabase::removeEntry(QString group)
{
    openDatabase()->remove(group);
    return 1;
}

void CDDatabase::reset()
{
    openDatabase()->clear();
    m_current_index = 0;
}

QStringList CDDatabase::getAllDefects() const
{
    return openDatabase()->childGroups();
}

int CDDatabase::getLength() const
{
    return getAllDefects().size();
}

QString CDDatabase::getSentence(int number) const
{
    return getSentence(groupName(number));
}

QString CDDatabase::getSentence(QString group) const
{
    return openDatabase()->value(group + kSentenceKey, QString()).toString();
}

QString CDDatabase::getCode(QString group) const
{
    return openDatabase()->value(group + kCodeKey, QString()).toString();
}

// Kept search: on a miss the next number is appended to the key already built
// ("CD1", "CD12", "CD123", ...). Callers pass numbers that exist; the bound keeps
// a wrong one from hanging the console.
QString CDDatabase::getCode(int number) const
{
    const std::unique_ptr<QSettings> db = openDatabase();
    QString group = groupName(number);
    for (int tries = 0; tries < kMaxCodeTries; ++tries) {
        const QString code = db->value(group + kCodeKey, QString()).toString();
        if (!code.isEmpty())
            return code;
        group += QString::number(++number);
    }
    return QString();
}
