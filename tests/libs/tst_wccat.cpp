// The catalogue library through its C interface, on the unit's own catalogue files.

#include "support/testunit.h"
#include "wccat.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <string>

namespace {

QString catalogueDir()
{
    return TestUnit::sourceDir() + QStringLiteral("/unit/root/opt/hbi/etc/WinCan/catalogues/");
}

std::wstring wide(const QString &text)
{
    return text.toStdWString();
}

QString text(const wchar_t *value)
{
    return QString::fromWCharArray(value);
}

int openCatalogue(const QString &path)
{
    return WCC_OpenCatalogEx(wide(path).c_str(), 1, L"UTF8", 0xffff);
}

// Closes what a test opened even when a check fails half way.
struct OpenCatalogue {
    explicit OpenCatalogue(const QString &file) : handle(openCatalogue(catalogueDir() + file)) {}
    ~OpenCatalogue()
    {
        if (handle >= 0)
            WCC_CloseCatalog(handle, 1);
    }
    int handle;
};

QStringList items(WCCatCharExt_t **records, int count)
{
    QStringList result;
    for (int i = 0; i < count; ++i)
        result << text(records[i]->Code);
    return result;
}

} // namespace

class TestWCCat : public QObject
{
    Q_OBJECT
private slots:
    void opensEveryCatalogue_data();
    void opensEveryCatalogue();
    void nodeTypesStandAtTheirFixedPlaces_data();
    void nodeTypesStandAtTheirFixedPlaces();
    void everyCatalogueHasTheCorvaneCodes_data();
    void everyCatalogueHasTheCorvaneCodes();
    void lookUpByCodePrefersExtensions();
    void parametersOfACode();
    void virtualRecordsAreInTheFullArrays();
    void closedHandlesGiveMinusFour();
    void unknownCodeGivesMinusSeven();
    void missingFileIsRefused();
    void brokenFilesAreRefused_data();
    void brokenFilesAreRefused();
    void longTextsAreCutToFit();
};

void TestWCCat::opensEveryCatalogue_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("type");
    QTest::newRow("MSCC-3") << "WRC_MSCC-3_UK_ENG_SEC.xml" << "MSCC-3";
    QTest::newRow("MSCC-4") << "WRC_MSCC-4_UK_ENG_SEC.xml" << "MSCC-4";
    QTest::newRow("MSCC-5") << "WRC_MSCC-5_UK_ENG_SEC.xml" << "MSCC-5";
    QTest::newRow("MSCC-5 domestic") << "WRC_MSCC-5-DOMESTIC-DRAIN-CODES_UK_ENG_SEC.xml" << "MSCC-5 Domestic";
}

void TestWCCat::opensEveryCatalogue()
{
    QFETCH(QString, file);
    QFETCH(QString, type);
    OpenCatalogue catalogue(file);
    QVERIFY2(catalogue.handle >= 0, qPrintable(QString::number(catalogue.handle)));

    WCCatVersion_t *version = nullptr;
    QCOMPARE(WCC_GetVersionInfo(catalogue.handle, &version), 0);
    QCOMPARE(text(version->Type), type);
    QCOMPARE(text(version->UniqueId).size(), 36);
    WCCatCatalog_t *info = nullptr;
    QCOMPARE(WCC_GetCatalogInfo(catalogue.handle, &info), 0);
    QCOMPARE(text(info->Country), QStringLiteral("UK"));
    QCOMPARE(text(info->ObjectType), QStringLiteral("SEC"));
    QVERIFY(info->HasClasses && info->HasCodes && info->HasChars && info->HasParams);
    QVERIFY(!text(WCC_GetInterfaceVersion()).isEmpty());

    // Codes name one record each, or look-up by code would be ambiguous.
    WCCatBaseCode_t **baseCodes = nullptr;
    WCCatCharExt_t **charExts = nullptr;
    const int baseCount = WCC_GetAllBaseCodes(catalogue.handle, &baseCodes);
    const int extCount = WCC_GetAllCharExts(catalogue.handle, &charExts);
    QVERIFY(baseCount > 10 && extCount > 20);
    QSet<QString> codes;
    for (int i = 0; i < baseCount; ++i)
        codes << text(baseCodes[i]->Code);
    for (int i = 0; i < extCount; ++i)
        codes << text(charExts[i]->Code);
    QCOMPARE(codes.size(), baseCount + extCount);
}

void TestWCCat::nodeTypesStandAtTheirFixedPlaces_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("classIndex");
    QTest::addColumn<int>("baseIndex");
    QTest::addColumn<int>("startExt");
    QTest::addColumn<int>("stopExt");
    QTest::newRow("MSCC-5") << "WRC_MSCC-5_UK_ENG_SEC.xml" << 0 << 6 << 0 << 1;
    QTest::newRow("MSCC-5 domestic") << "WRC_MSCC-5-DOMESTIC-DRAIN-CODES_UK_ENG_SEC.xml" << 3 << 3 << 0 << 1;
    QTest::newRow("MSCC-4") << "WRC_MSCC-4_UK_ENG_SEC.xml" << 2 << 5 << 1 << 0;
    QTest::newRow("MSCC-3") << "WRC_MSCC-3_UK_ENG_SEC.xml" << 2 << 3 << 1 << 0;
}

void TestWCCat::nodeTypesStandAtTheirFixedPlaces()
{
    QFETCH(QString, file);
    QFETCH(int, classIndex);
    QFETCH(int, baseIndex);
    QFETCH(int, startExt);
    QFETCH(int, stopExt);
    OpenCatalogue catalogue(file);
    QVERIFY(catalogue.handle >= 0);

    WCCatCodeClass_t **classes = nullptr;
    QVERIFY(WCC_GetCodeClasses(catalogue.handle, &classes) > classIndex);
    WCCatBaseCode_t **baseCodes = nullptr;
    QVERIFY(WCC_GetBaseCodesByClass(catalogue.handle, classes[classIndex], &baseCodes) > baseIndex);
    WCCatCharExt_t **sides = nullptr;
    QCOMPARE(WCC_GetCharExtsByBaseCode(catalogue.handle, baseCodes[baseIndex], &sides), 2);

    WCCatCharExt_t **starts = nullptr;
    const int startCount = WCC_GetCharExtsByCharExt(catalogue.handle, sides[startExt], &starts);
    QCOMPARE(items(starts, startCount),
             QStringList({"MH", "IC", "RE", "OC", "OF", "BR", "LH", "SK", "GY", "OS", "CP"}));
    WCCatCharExt_t **stops = nullptr;
    const int stopCount = WCC_GetCharExtsByCharExt(catalogue.handle, sides[stopExt], &stops);
    QCOMPARE(items(stops, stopCount), QStringList({"MHF", "ICF", "REF", "LHF", "OFF", "CPF", "GYF", "OSF", "SKF",
                                                   "WRF", "BRF", "OCF"}));

    // The WRC end chain looks for this place in whichever catalogue is current.
    QVERIFY(WCC_GetBaseCodesByClass(catalogue.handle, classes[0], &baseCodes) > 6);
    QVERIFY(WCC_GetCharExtsByBaseCode(catalogue.handle, baseCodes[6], &sides) > 1);
}

void TestWCCat::everyCatalogueHasTheCorvaneCodes_data()
{
    opensEveryCatalogue_data();
}

void TestWCCat::everyCatalogueHasTheCorvaneCodes()
{
    QFETCH(QString, file);
    OpenCatalogue catalogue(file);
    const QStringList codes = {"WL", "SA", "MH", "IC", "RE", "OC", "OF", "BR", "LH", "SK", "GY", "OS", "CP",
                               "MHF", "ICF", "REF", "LHF", "OFF", "CPF", "GYF", "OSF", "SKF", "WRF", "BRF", "OCF"};
    for (const QString &code : codes) {
        WCCatParameter_t **params = nullptr;
        QVERIFY2(WCC_GetParamsByDefectCode(catalogue.handle, wide(code).c_str(), &params) > 0, qPrintable(code));
    }
}

void TestWCCat::lookUpByCodePrefersExtensions()
{
    OpenCatalogue catalogue(QStringLiteral("WRC_MSCC-5_UK_ENG_SEC.xml"));
    WCCatCharExt_t **charExts = nullptr;
    const int count = WCC_GetAllCharExts(catalogue.handle, &charExts);
    const WCCatCharExt_t *grease = nullptr;
    for (int i = 0; i < count; ++i) {
        if (text(charExts[i]->Code) == QLatin1String("DEG"))
            grease = charExts[i];
    }
    QVERIFY(grease);
    QCOMPARE(text(grease->Item), QStringLiteral("Attached, grease"));
    QVERIFY(text(grease->ObsText).startsWith(QLatin1String("Attached deposits, grease @CLF @CLT")));
    QCOMPARE(grease->NumOfParams, 5);
    QCOMPARE(grease->Level, 2);
}

void TestWCCat::parametersOfACode()
{
    OpenCatalogue catalogue(QStringLiteral("WRC_MSCC-5_UK_ENG_SEC.xml"));
    WCCatParameter_t **params = nullptr;
    QCOMPARE(WCC_GetParamsByDefectCode(catalogue.handle, L"MHF", &params), 3);
    QCOMPARE(text(params[0]->Placeholder), QStringLiteral("@END"));
    QCOMPARE(text(params[0]->Caption), QStringLiteral("Node reference"));
    QCOMPARE(text(params[0]->Prefix), QStringLiteral("reference number:"));
    QCOMPARE(params[0]->Mandatory, 1);
    QCOMPARE(text(params[1]->Placeholder), QStringLiteral("@REM"));
    QCOMPARE(params[1]->Mandatory, 0);
    QCOMPARE(text(params[2]->Caption), QStringLiteral("Pipe Serviceability"));

    QCOMPARE(WCC_GetParamsByDefectCode(catalogue.handle, L"B", &params), 4);
    QCOMPARE(text(params[0]->Unit), QStringLiteral("o'clock"));
    QCOMPARE(text(params[0]->Prefix), QStringLiteral("from"));
    QCOMPARE(text(params[1]->Prefix), QStringLiteral("to"));
    QCOMPARE(text(params[2]->Caption), QStringLiteral("Continuous Defect"));
}

void TestWCCat::virtualRecordsAreInTheFullArrays()
{
    OpenCatalogue catalogue(QStringLiteral("WRC_MSCC-5_UK_ENG_SEC.xml"));
    WCCatCodeClass_t **classes = nullptr;
    WCC_GetCodeClasses(catalogue.handle, &classes);
    WCCatBaseCode_t **structural = nullptr;
    const int count = WCC_GetBaseCodesByClass(catalogue.handle, classes[1], &structural);
    QStringList virtualCodes;
    for (int i = 0; i < count; ++i) {
        if (structural[i]->IsVirtual)
            virtualCodes << text(structural[i]->Code);
    }
    QCOMPARE(virtualCodes, QStringList{"X"});
    QCOMPARE(text(structural[10]->Code), QStringLiteral("XP"));
}

void TestWCCat::closedHandlesGiveMinusFour()
{
    const int handle = openCatalogue(catalogueDir() + QStringLiteral("WRC_MSCC-4_UK_ENG_SEC.xml"));
    QVERIFY(handle >= 0);
    QCOMPARE(WCC_CloseCatalog(handle, 1), 0);
    WCCatCodeClass_t **classes = nullptr;
    WCCatParameter_t **params = nullptr;
    WCCatVersion_t *version = nullptr;
    QCOMPARE(WCC_GetCodeClasses(handle, &classes), WCC_ERR_NOT_OPEN);
    QCOMPARE(WCC_GetParamsByDefectCode(handle, L"WL", &params), WCC_ERR_NOT_OPEN);
    QVERIFY(!params);
    QCOMPARE(WCC_GetVersionInfo(handle, &version), WCC_ERR_NOT_OPEN);
    QCOMPARE(WCC_CloseCatalog(handle, 1), WCC_ERR_NOT_OPEN);
    QCOMPARE(WCC_GetCodeClasses(-1, &classes), -4);
    QCOMPARE(WCC_GetCodeClasses(9999, &classes), -4);
}

void TestWCCat::unknownCodeGivesMinusSeven()
{
    OpenCatalogue catalogue(QStringLiteral("WRC_MSCC-4_UK_ENG_SEC.xml"));
    WCCatParameter_t **params = nullptr;
    QCOMPARE(WCC_GetParamsByDefectCode(catalogue.handle, L"ZZZ", &params), -7);
    QCOMPARE(WCC_GetParamsByDefectCode(catalogue.handle, L"", &params), -7);
    QCOMPARE(WCC_GetParamsByDefectCode(catalogue.handle, nullptr, &params), WCC_ERR_ARGUMENT);
}

void TestWCCat::missingFileIsRefused()
{
    QCOMPARE(openCatalogue(catalogueDir() + QStringLiteral("WRC_MSCC-9_UK_ENG_SEC.xml")), WCC_ERR_FILE);
    QCOMPARE(WCC_OpenCatalogEx(nullptr, 1, L"UTF8", 0xffff), WCC_ERR_ARGUMENT);
    QCOMPARE(WCC_OpenCatalogEx(L"/nonexistent.xml", 1, L"UTF16", 0xffff), WCC_ERR_ENCODING);
}

void TestWCCat::brokenFilesAreRefused_data()
{
    QFile real(catalogueDir() + QStringLiteral("WRC_MSCC-5_UK_ENG_SEC.xml"));
    QVERIFY(real.open(QIODevice::ReadOnly));
    const QByteArray whole = real.readAll();

    QTest::addColumn<QByteArray>("content");
    QTest::newRow("truncated in a record") << whole.left(whole.size() / 2);
    QTest::newRow("truncated before the end tag") << whole.left(whole.lastIndexOf("</catalogue>"));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not XML") << QByteArray("MH,Manhole\nMHF,Manhole\n");
    QTest::newRow("other root") << QByteArray("<catalog format=\"1\"/>");
    QTest::newRow("other format") << QByteArray("<catalogue format=\"2\"/>");
    QTest::newRow("code outside a class") << QByteArray("<catalogue format=\"1\"><code code=\"B\" item=\"B\"/></catalogue>");
    QTest::newRow("code without code") << QByteArray("<catalogue format=\"1\"><class item=\"A\"><code item=\"B\"/></class></catalogue>");
    QTest::newRow("param outside a code") << QByteArray(
        "<catalogue format=\"1\"><class item=\"A\"><param placeholder=\"@X\"/></class></catalogue>");
    QTest::newRow("extensions three deep") << QByteArray(
        "<catalogue format=\"1\"><class item=\"A\"><code code=\"A\" item=\"A\"><ext code=\"B\" item=\"B\">"
        "<ext code=\"C\" item=\"C\"><ext code=\"D\" item=\"D\"/></ext></ext></code></class></catalogue>");
    QTest::newRow("unclosed tag") << QByteArray("<catalogue format=\"1\"><class item=\"A\"></catalogue>");
    QTest::newRow("garbage after the end") << whole + "<extra>";
}

void TestWCCat::brokenFilesAreRefused()
{
    QFETCH(QByteArray, content);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("broken.xml"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    QCOMPARE(openCatalogue(path), WCC_ERR_FORMAT);
}

void TestWCCat::longTextsAreCutToFit()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("long.xml"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<catalogue format=\"1\"><class item=\"A\"><code code=\"ABCDEFGHIJKLMNOP\" item=\"" + QByteArray(400, 'x')
               + "\"><param placeholder=\"@A\" caption=\"\xc3\xa9t\xc3\xa9\"/></code></class></catalogue>");
    file.close();
    const int handle = openCatalogue(path);
    QVERIFY(handle >= 0);
    WCCatBaseCode_t **baseCodes = nullptr;
    QCOMPARE(WCC_GetAllBaseCodes(handle, &baseCodes), 1);
    QCOMPARE(text(baseCodes[0]->Code), QStringLiteral("ABCDEFGHIJ"));
    QCOMPARE(text(baseCodes[0]->Item).size(), 255);
    WCCatParameter_t **params = nullptr;
    QCOMPARE(WCC_GetParamsByDefectCode(handle, L"ABCDEFGHIJ", &params), 1);
    QCOMPARE(text(params[0]->Caption), QString::fromUtf8("\xc3\xa9t\xc3\xa9"));
    WCC_CloseCatalog(handle, 1);
}

QTEST_GUILESS_MAIN(TestWCCat)
#include "tst_wccat.moc"
