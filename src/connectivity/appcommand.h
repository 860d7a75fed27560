#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// One line the mobile app sent, told apart by its words. A line of one word is
// looked up in the one-word table; a line of more words by its first word, so
// "Transfer true" (two words) is a different command from "Transfer 1000 jpg Map".
class AppCommand
{
public:
    enum Kind {
        kLampUp,
        kLampDown,
        kRecord,
        kStop,
        kCoilerSet,
        kStartStream,
        kStopStream,
        kGetProjects,
        kGetReport,
        kGetXML,
        kIdentify,
        kPort,
        kIP,
        kTransferReceive,
        kTransferSend,
        kTransferOther,
        kFileErrorSuccess,
        kFileErrorFailure,
        kFileErrorOther,
        kSetProject,
        kOstraApp,
        kUnknown,
    };

    static AppCommand parse(const QString &line);
    // The bytes answering `word`: the fixed reply table, empty for a word without a reply.
    static QByteArray reply(const QString &word);

    Kind kind() const { return m_kind; }
    const QStringList &words() const { return m_words; }
    QString word(int i) const { return m_words.value(i); }

private:
    static Kind oneWordKind(const QString &word);
    static Kind multiWordKind(const QStringList &words);

    Kind m_kind = kUnknown;
    QStringList m_words;
};
