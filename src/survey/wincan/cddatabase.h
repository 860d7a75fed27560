#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QSettings;

// The continuous defects open in the running section, each with what is needed
// to write its closing observation later: one group "CD<n>" per defect in an
// INI file, with its code and the entered values joined by ",".
//
// Numbers only grow until reset(), so a closed defect's number is not given
// again; the file is cleared at start, as open defects do not outlive the
// program.
class CDDatabase
{
public:
    static CDDatabase *instance();
    explicit CDDatabase(QString path);
    ~CDDatabase();

    int addEntry(QString code, QString sentence);
    int removeEntry(int number);
    int removeEntry(QString group);
    void reset();
    // Group names as the INI file sorts them: "CD10" before "CD2".
    QStringList getAllDefects() const;
    int getLength() const;
    int getIndex() const { return m_current_index; }
    QString getSentence(int number) const;
    QString getSentence(QString group) const;
    QString getCode(QString group) const;
    // Tries "CD<n>", then "CD<n><n+1>" and so on while nothing is found; gives
    // up after a bounded number of tries with an empty code.
    QString getCode(int number) const;

private:
    // The file as settings. A file this class did not write (one holding
    // serialised Qt values, whose decoding trusts the lengths it reads) is
    // dropped first: open defects are lost, the console is not.
    std::unique_ptr<QSettings> openDatabase() const;

    int m_current_index = 0;
    QString m_db_file;
};
