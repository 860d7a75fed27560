#include "survey/wincan/wcparams.h"

#include "survey/ivideoscreen.h"
#include "core/consolesettings.h"
#include "survey/observationline.h"
#include "survey/surveymanager.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTimer>

namespace {

const QString kOstraMode = QStringLiteral("Ostra");
const QString kClock = QStringLiteral("o'clock");
const QString kReferencePrefix = QStringLiteral("reference number:");
const QString kEndPlaceholder = QStringLiteral("@END");
const QString kServiceabilityCaption = QStringLiteral("Pipe Serviceability");

// A finish node's code is its node type and an "F": "MHF".
bool isFinishNode(const QString &code)
{
    return code.size() >= 3 && code.endsWith(QLatin1Char('F'));
}

bool isQuantity(const QString &piece)
{
    static const QRegularExpression digits(QStringLiteral("^\\d*$"));
    return digits.match(piece).hasMatch();
}

} // namespace

WCParams::WCParams(QString &code, QObject *parent) : QObject(parent), m_code(code)
{
    m_db = CDDatabase::instance();
    WCCatalogue *catalogue = WCCatalogueManager::instance()->catalogue(WCCatalogueManager::kWCCat_Default);
    if (!catalogue) {
        m_count = WCC_ERR_NOT_OPEN;
        return;
    }
    m_count = catalogue->getParams(code, &m_params);
    if (catalogue->getCharExtCode(code, &m_charext) != 0)
        catalogue->getBaseCode(code, &m_basecode);
    m_allCount = qMax(0, m_count);
}

QString WCParams::text(const wchar_t *value)
{
    return QString::fromWCharArray(value);
}

WCCatParam *WCParams::param(int index) const
{
    return index >= 0 && index < m_allCount ? m_params[index] : nullptr;
}

QStringList WCParams::captions() const
{
    QStringList result;
    for (int i = 0; i < m_allCount; ++i)
        result << text(m_params[i]->Caption);
    return result;
}

QString WCParams::surveyMode() const
{
    return ConsoleSettings().value(QStringLiteral("General/survey_mode")).toString();
}

void WCParams::showNote(const QString &title, const QString &note)
{
    if (m_video)
        m_video->showMessage(title, {note}, nullptr, nullptr);
}

void WCParams::run(int defCode)
{
    // The distance and picture of the moment the entry began, not of the answers.
    if (m_video) {
        m_counter = m_video->getCounter();
        m_pos = m_video->getVideoPosition();
    }
    m_def_code = defCode;
    if (m_count < 1) {
        qInfo().noquote() << "Defect code" << m_code << "not in the catalogue, error" << m_count;
        showNote(tr("Error:"), tr("Can't find Defect code ") + QStringLiteral(" '") + m_code + QStringLiteral("' (")
                                   + tr("error: ") + QString::number(m_count) + QStringLiteral(")")
                                   + tr("[Press OK]"));
        return;
    }
    if (defCode < 0) {
        showList();
        return;
    }
    // Closing a continuous defect: the values it was opened with come back.
    const QStringList open = m_db->getAllDefects();
    if (defCode >= open.size()) {
        qWarning() << "No open continuous defect at" << defCode;
        return;
    }
    const QString group = open.at(defCode);
    data = m_db->getSentence(group).split(QLatin1Char(','));
    rebuildPlaceholders();
    m_db->removeEntry(group);
    menu_params(m_count + 1);
}

QString WCParams::label(int index) const
{
    const WCCatParam *p = m_params[index];
    QString caption = text(p->Caption);
    const QString prefix = text(p->Prefix).replace(QLatin1Char(';'), QLatin1Char('/'));
    const QString unit = text(p->Unit);
    const QString suffix = text(p->Suffix).replace(QLatin1Char(';'), QLatin1Char('/'));
    if (caption.contains(kServiceabilityCaption) || caption.contains(QLatin1String("Grade")))
        caption += tr(" (Scale 1-5: 1-Poor 5-Flawless)");
    QString result;
    if (unit == kClock || suffix == kClock)
        result = prefix + QLatin1Char(' ') + kClock + QStringLiteral(" [1-12]");
    else if (caption == QLatin1String("Cross-sectional area loss") || caption == QLatin1String("cross-sectional area loss"))
        result = caption + QStringLiteral(" %");
    else if (caption == QLatin1String("Continuous Defect") || caption == QLatin1String("continuous defect"))
        result = caption + QStringLiteral(" Y/N");
    else
        result = caption + QLatin1Char(' ') + unit;
    if (p->Mandatory)
        result += QStringLiteral(" *");
    return result;
}

void WCParams::showList()
{
    QStringList labels;
    data.clear();
    m_serviceabilityIndex = -1;
    for (int i = 0; i < m_allCount; ++i) {
        data << QString();
        // Serviceability is asked once per section by the mode, never per code.
        if (m_serviceabilityIndex < 0 && text(m_params[i]->Caption).contains(kServiceabilityCaption)) {
            m_serviceabilityIndex = i;
            continue;
        }
        labels << label(i);
    }
    m_count = labels.size();
    if (m_video)
        m_video->showParamEntry(tr("Code: ") + m_code, labels, this, SLOT(process_params(QStringList)));
}

void WCParams::readParameter(int index)
{
    const WCCatParam *p = m_params[index];
    m_prefix = text(p->Prefix).replace(QLatin1Char(';'), QLatin1Char('/'));
    m_suffix = text(p->Suffix).replace(QLatin1Char(';'), QLatin1Char('/'));
    m_unit = text(p->Unit);
}

QString WCParams::decorate(const QString &value) const
{
    if (value.isEmpty())
        return value;
    QString result = value;
    if (!m_prefix.isEmpty())
        result = m_prefix + QLatin1Char(' ') + result;
    if (!m_unit.isEmpty())
        result += QLatin1Char(' ') + m_unit;
    if (!m_suffix.isEmpty())
        result += QLatin1Char(' ') + m_suffix;
    return result;
}

void WCParams::rebuildPlaceholders()
{
    placeholders.clear();
    for (int i = 0; i < m_allCount; ++i)
        placeholders << text(m_params[i]->Placeholder);
    while (data.size() < m_allCount)
        data << QString();
}

void WCParams::process_params(QStringList values)
{
    rebuildPlaceholders();
    // The values come in the order of the labels, which skip the serviceability.
    m_item = 0;
    for (const QString &value : values) {
        if (m_item == m_serviceabilityIndex)
            ++m_item;
        if (m_item >= m_allCount)
            break;
        readParameter(m_item);
        data[m_item] = decorate(value);
        ++m_item;
    }
    if (m_video)
        m_video->showMenu(tr("Add Snapshot?"), {tr("No"), tr("Yes")}, this, SLOT(menuSnapshot(int)), false);
}

void WCParams::menuSnapshot(int row)
{
    take_snapshot = row == 1;
    menu_params(m_count + 1);
}

void WCParams::menu_params(int item)
{
    if (item - 1 < m_count) {
        m_item = item - 1;
        readParameter(m_item);
        const QString hint = m_unit.isEmpty() ? tr("Enter Text") : tr("units = ") + m_unit;
        if (m_video)
            m_video->showTextEntry(text(m_params[m_item]->Caption) + tr(" Prefix: ") + m_prefix,
                                   {QString(), hint, tr("[Press OK]")}, this, SLOT(process_parameter(int,QString)),
                                   false);
        return;
    }
    writeBlock();
}

void WCParams::process_parameter(int key, QString value)
{
    if (key != 0 && m_item >= 0 && m_item < data.size()) {
        readParameter(m_item);
        data[m_item] = decorate(value);
    }
    showList();
}

void WCParams::append(const QString &type, const QString &line)
{
    SurveyManager::instance()->appendObservation(m_pos, m_counter, type, line);
}

void WCParams::writeBlock()
{
    rebuildPlaceholders();
    append(ObservationLine::kCode, m_code);
    last_code = m_code;
    if (isFinishNode(m_code)) {
        for (int i = 0; i < placeholders.size(); ++i) {
            if (placeholders.at(i) == kEndPlaceholder)
                SurveyManager::instance()->appendEndNodeRef(QString(data.at(i)).remove(kReferencePrefix + QLatin1Char(' ')));
        }
    }
    QString sentence = getObsText();
    last_sentence = sentence;
    if (m_cont_def) {
        storeContinuousDefect(sentence);
        append(ObservationLine::kCdef, m_cd_code);
        m_cont_def = false;
    }
    append(ObservationLine::kText, sentence);
    if (take_snapshot) {
        SurveyManager::instance()->takeSnapshot(false);
        take_snapshot = false;
    }
    append(ObservationLine::kRems, m_remarks);
    append(ObservationLine::kClkt, m_clock_to);
    append(ObservationLine::kClkf, m_clock_from);
    for (const QString &quantity : qAsConst(m_quant))
        append(ObservationLine::kQant, quantity);
    append(ObservationLine::kEnd, QString());

    ConsoleSettings settings;
    if (m_def_code == kFreeDefect && settings.value(QStringLiteral("WinCan/Stamp_Codes"), false).toBool() && m_video)
        m_video->createWinCanCodeText(last_code, last_sentence);
    if (m_def_code == kStopNode) {
        if (!settings.value(QStringLiteral("End_Header/Enabled"), false).toBool()) {
            stop();
        } else {
            if (m_video)
                m_video->createEndHeader();
            const int seconds = settings.value(QStringLiteral("WinCan/Text_Timeout"), 5).toInt();
            QTimer::singleShot(seconds * 1000, this, &WCParams::stop);
        }
    } else if (m_def_code == kStartNode) {
        emit startNodeEntered();
    }
}

void WCParams::storeContinuousDefect(QString &sentence)
{
    if (!m_cd_code.startsWith(QLatin1Char('S')))
        return;
    const QString joined = data.join(QLatin1Char(','));
    if (surveyMode() != kOstraMode) {
        m_db->addEntry(m_code, joined);
        return;
    }
    if (!ConsoleSettings().value(QStringLiteral("SurveyData/WRC"), false).toBool())
        return;
    if (m_db->getLength() < kMaxWrcContinuousDefects) {
        m_db->addEntry(m_code, joined);
        return;
    }
    // Written, but not kept open: the sentence loses its start mark, the CDEF line keeps it.
    sentence.remove(QRegularExpression(QStringLiteral("S[0-9]")));
    showNote(tr("Note:"), tr("Maximum Number of Continuous Defects Reached"));
}

QString WCParams::serviceabilityPhrase() const
{
    // The stored index counts the menu's rows, which have one more than this
    // table ("Failing to Discharge"); each row prints the phrase of the next. Kept.
    static const char *const phrases[] = {
        QT_TR_NOOP("the Pipe is Flowing Fine"),       QT_TR_NOOP("there is Evidence of Leakage"),
        QT_TR_NOOP("evidence of Stormwater Flooding"), QT_TR_NOOP("root Growth may Lead to Blockage"),
        QT_TR_NOOP("a Leakage Test has Failed"),       QT_TR_NOOP("the Pipe is Unserviceable")};
    const int index = ConsoleSettings().value(QStringLiteral("WinCan/Serviceability"), QStringLiteral("0")).toInt();
    if (index < 0 || index >= int(sizeof(phrases) / sizeof(phrases[0])))
        return QString();
    return QStringLiteral(", ") + tr(phrases[index]);
}

QString WCParams::getObsText()
{
    QString pattern;
    if (m_charext)
        pattern = text(m_charext->ObsText);
    else if (m_basecode)
        pattern = text(m_basecode->ObsText);
    pattern += QStringLiteral(" @REM");
    const QStringList words = pattern.split(QLatin1Char(' '));
    const bool ostra = surveyMode() == kOstraMode;
    QString result = pattern;
    m_clock_to.clear();
    m_clock_from.clear();
    m_remarks.clear();
    m_cd_code.clear();
    m_quant.clear();

    for (const QString &word : words) {
        QString value;
        bool matched = false;
        for (int i = 0; i < placeholders.size(); ++i) {
            if (placeholders.at(i) != word)
                continue;
            matched = true;
            QString v = data.value(i);
            if (v.startsWith(QLatin1String("to"))) {
                value += v;
                m_clock_to = QString(v).remove(QStringLiteral("to")).remove(kClock).trimmed();
            } else if (v.startsWith(QLatin1String("from"))) {
                value = v + QLatin1Char(' ') + value;
                m_clock_from = QString(v).remove(QStringLiteral("from/at")).remove(QStringLiteral("from")).remove(kClock).trimmed();
            } else if (word.startsWith(QLatin1String("@CD")) && v.startsWith(QLatin1Char('Y'), Qt::CaseInsensitive)) {
                m_cont_def = true;
                v = QStringLiteral("S") + QString::number(m_db->getIndex() + 1);
                m_cd_code = v;
                data[i] = v;
                value += v;
            } else if (word.startsWith(QLatin1String("@CD")) && v.startsWith(QLatin1Char('S'), Qt::CaseInsensitive)) {
                v.replace(QLatin1Char('S'), QLatin1Char('F'));
                m_cd_code = v;
                data[i] = v;
                value += v;
                m_cont_def = true;
            } else if (word.startsWith(QLatin1String("@REM"))) {
                m_remarks = v;
            } else if (word.startsWith(QLatin1String("@SERV"))) {
                value = ostra ? QString() : serviceabilityPhrase();
            } else {
                value += v;
                for (const QString &piece : v.split(QLatin1Char(' '))) {
                    if (isQuantity(piece))
                        m_quant << piece;
                }
                if (value.startsWith(kReferencePrefix))
                    m_quant << QString(v).remove(kReferencePrefix + QLatin1Char(' ')).trimmed();
            }
        }
        if (matched)
            result.replace(word, value);
        else if (ostra && word.startsWith(QLatin1String("@SERV")))
            result.replace(word, QString());
    }
    result.remove(QLatin1Char(','));
    return result;
}

void WCParams::stop()
{
    if (m_video)
        m_video->stop();
    SurveyManager::instance()->cleanUp();
}
