#include "reports/wincanconversions.h"

#include <QSettings>

namespace {

struct Word {
    const char *code;
    const char *text;
};

template <size_t N>
QString lookUp(const QString &code, const Word (&table)[N])
{
    const QString key = code.trimmed();
    for (const Word &word : table) {
        if (key.compare(QLatin1String(word.code), Qt::CaseInsensitive) == 0)
            return QLatin1String(word.text);
    }
    return code;
}

const Word kWeather[] = {{"R", "Rain"},         {"D", "No Rain Or Snow"}, {"S", "Melting Snow/Ice"},
                         {"1", "Dry"},          {"2", "Heavy Rain"},      {"3", "Light Rain"},
                         {"4", "Showers"},      {"5", "Snow"}};
const Word kPreCleaned[] = {{"Y", "Yes"}, {"N", "No"}, {"Z", "Not Known"}};
const Word kMethod[] = {{"B", "CCTV"}, {"A", "Direct"}, {"C", "Manhole/Chamber"}};
const Word kGrade[] = {{"A", "Category A"}, {"B", "Category B"}, {"C", "Category C"}, {"Z", "Unknown"}};
const Word kUse[] = {{"C", "Combined"},        {"F", "Foul"},
                     {"S", "Surface Water"},   {"T", "Trade Effluent"},
                     {"W", "Culverted Watercourse"}, {"LD", "Field Drainage"},
                     {"Z", "Other"}};
const Word kFlow[] = {{"N", "No Flow Control"},
                      {"BL", "Flows Blocked Upstream"},
                      {"PB", "Flows Partially Blocked Upstream"},
                      {"X", "Other"}};
const Word kType[] = {{"A", "Gravity Drain/Sewer"}, {"B", "Rising Main"}, {"V", "Vacuum Pipeline"}};
const Word kPurpose[] = {{"A", "Investigation of known defects"},
                         {"B", "Investigation of infiltration"},
                         {"C", "Inspection of repairs or renovations"},
                         {"D", "Pre-adoption survey"},
                         {"E", "Inspection of new sewers"},
                         {"F", "Asset condition of sewer system"},
                         {"G", "Routine inspection"},
                         {"H", "Investigation of suspected problem"},
                         {"I", "Investment Planning"},
                         {"J", "End of warranty period"},
                         {"X", "Other"}};
const Word kLining[] = {{"SP", "Sprayed Lining"},
                        {"M", "Lining Inserted During Manufacture"},
                        {"CIP", "Cured-In-Place Lining"},
                        {"SEG", "Segmented Lining"},
                        {"DP", "Lining With Discrete Pipes"},
                        {"CP", "Lining With Continuous Pipe"},
                        {"CF", "Close-Fit Lining"},
                        {"SW", "Spirally-Wound Lining"},
                        {"Z", "Other"}};
const Word kLocation[] = {{"RD", "Road"},
                          {"FWY", "A Footway Beside A Road"},
                          {"VG", "Verge"},
                          {"PD", "Other Pedestrian Area"},
                          {"FLD", "Fields"},
                          {"PR", "Property with Buildings"},
                          {"GDN", "Gardens with Private Property"},
                          {"WLD", "Woodland"},
                          {"DIF", "Difficult Access"},
                          {"WWY", "Under A Waterway"},
                          {"A", "Main Road - urban"},
                          {"B", "Main Road - suburban/rural"},
                          {"C", "Light Road"},
                          {"D", "Footpath or Verge"},
                          {"E", "Fields"},
                          {"F", "Gardens"},
                          {"G", "Woodland"},
                          {"X", "Difficult Access"},
                          {"Z", "Other"}};
const Word kShape[] = {{"C", "Circular "},
                       {"A", "Arched "},
                       {"B", "Barrel "},
                       {"E", "Egg-Shaped "},
                       {"H", "Horseshoe "},
                       {"O", "Oval "},
                       {"R", "Rectangular "},
                       {"T", "Trapezoid "},
                       {"U", "U-Shapped "},
                       {"K", "Kerb Block "},
                       {"CSC", "Circular with Small Channel "},
                       {"RSC", "Rectangular with Small Channel "},
                       {"Z", "Other "}};
const Word kMaterial[] = {{"A", "Asbestos Cement"},
                          {"BL", "Bitumen Lining"},
                          {"BR", "Brick"},
                          {"CI", "Cast Iron"},
                          {"CL", "Cement Mortar Lining"},
                          {"CO", "Concrete"},
                          {"CS", "Conrete Segments"},
                          {"DI", "Ductile Iron"},
                          {"EP", "Epoxy"},
                          {"FC", "Fibre Cement"},
                          {"FRP", "Fibre Reinforced Plastics"},
                          {"GI", "Grey Cast Iron"},
                          {"MAC", "Masonry - In Regular Courses"},
                          {"MAR", "Masonry - Randomly Coursed"},
                          {"MX", "Mixed Material Construction"},
                          {"PVC", "Polyvinyl Chloride"},
                          {"PE", "Polyethylene"},
                          {"PF", "Pitch Fibre"},
                          {"PP", "Polypropylene"},
                          {"PS", "Polyester"},
                          {"RC", "Reinforced Concrete"},
                          {"ST", "Steel"},
                          {"SPC", "Sprayed Concrete"},
                          {"VC", "Vitrified Clay"},
                          {"XI", "Unidentified Material"},
                          {"XP", "Unidentified Type Of Plastics"},
                          {"Z", "Other"}};

} // namespace

QString WinCanConversions::convertWinCanWeather(const QString &code) { return lookUp(code, kWeather); }
QString WinCanConversions::convertWinCanPreCleaned(const QString &code) { return lookUp(code, kPreCleaned); }
QString WinCanConversions::convertWinCanMethod(const QString &code) { return lookUp(code, kMethod); }
QString WinCanConversions::convertWinCanGrade(const QString &code) { return lookUp(code, kGrade); }
QString WinCanConversions::convertWinCanUse(const QString &code) { return lookUp(code, kUse); }
QString WinCanConversions::convertWinCanFlow(const QString &code) { return lookUp(code, kFlow); }
QString WinCanConversions::convertWinCanType(const QString &code) { return lookUp(code, kType); }
QString WinCanConversions::convertWinCanPurpose(const QString &code) { return lookUp(code, kPurpose); }
QString WinCanConversions::convertWinCanLining(const QString &code) { return lookUp(code, kLining); }
QString WinCanConversions::convertWinCanLiningMat(const QString &code) { return lookUp(code, kMaterial); }
QString WinCanConversions::convertWinCanMaterial(const QString &code) { return convertWinCanLiningMat(code); }

QString WinCanConversions::convertWinCanLocation(const QString &code, const QString &projectFile)
{
    if (code.trimmed().compare(QLatin1String("BLG"), Qt::CaseInsensitive) == 0) {
        // Only the fourth edition of the catalogue puts the pipe under the building itself.
        const QSettings project(projectFile, QSettings::IniFormat);
        return project.value(QStringLiteral("Project/catalogcustom")).toString() == QLatin1String("MSCC-4")
                   ? QStringLiteral("Under a permanent building")
                   : QStringLiteral("Property with Buildings");
    }
    return lookUp(code, kLocation);
}

QString WinCanConversions::convertShapecode(const QString &code)
{
    for (const Word &word : kShape) {
        if (code == QLatin1String(word.code))
            return QLatin1String(word.text);
    }
    return QStringLiteral("Unknown ");
}
