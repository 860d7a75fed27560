#include "survey/forms/wcformlists.h"

bool WCFormLists::isMscc3(Specification specification)
{
    return specification == WCCatalogueManager::kWCCat_MSCC_3;
}

QStringList WCFormLists::blankFirst(QStringList rows)
{
    rows.prepend(QString());
    return rows;
}

QStringList WCFormLists::directions()
{
    return blankFirst({tr("Upstream (U)"), tr("Downstream (D)")});
}

QStringList WCFormLists::pipeMaterials(Specification specification)
{
    if (isMscc3(specification)) {
        return blankFirst({tr("Alkathene (AK)"),
                           tr("Asbestos cement (AC)"),
                           tr("Bitumen (BL)"),
                           tr("Brick (BR)"),
                           tr("Cast Iron (CI)"),
                           tr("Cement (CL)"),
                           tr("Spun Grey Iron (SI)"),
                           tr("Concrete (CO)"),
                           tr("Concrete Bolted Segments (CSB)"),
                           tr("Concrete Unbolted Segments (CSU)"),
                           tr("Concrete Box Culvert (CC)"),
                           tr("Ductile Iron (DI)"),
                           tr("Glass Reinforced Cement (GRC)"),
                           tr("Glass Reinforced Plastic (GRP)"),
                           tr("Plastic (PL)"),
                           tr("Plastic Steel Composite (PSC)"),
                           tr("Polyvinyl Chloride (PVC)"),
                           tr("Polyethylene (PE)"),
                           tr("Reinforced Plastic Matrix (RPM)"),
                           tr("Resin (RL)"),
                           tr("Soft Inversion Type Liner (IS)"),
                           tr("Steel (ST)"),
                           tr("Vitrified Clay (VC)"),
                           tr("Polypropylene (PP)"),
                           tr("Pitch Fibre (PF)"),
                           tr("Masonry - In Regular Courses (MAC)"),
                           tr("Masonry - Randomly Coursed (MAR)"),
                           tr("Other (XXX)"),
                           tr("Not Known (ZZZ)")});
    }
    return blankFirst({tr("Asbestos Cement (AC)"),
                       tr("Bitumen Lining (BL)"),
                       tr("Brick (BR)"),
                       tr("Cast Iron (CI)"),
                       tr("Cement Mortar Lining (CL)"),
                       tr("Concrete (CO)"),
                       tr("Concrete Segments (CS)"),
                       tr("Ductile Iron (DI)"),
                       tr("Epoxy (EP)"),
                       tr("Fibre Cement (FC)"),
                       tr("Fibre Reinforced Plastics (FRP)"),
                       tr("Grey Cast Iron (GI)"),
                       tr("Masonry - In Regular Courses (MAC)"),
                       tr("Masonry - Randomly Coursed (MAR)"),
                       tr("Mixed Material Construction (MX)"),
                       tr("Polyvinyl Chloride (PVC)"),
                       tr("Polyethylene (PE)"),
                       tr("Pitch Fibre (PF)"),
                       tr("Polypropylene (PP)"),
                       tr("Polyester (PS)"),
                       tr("Reinforced Concrete (RC)"),
                       tr("Sprayed Concrete (SPC)"),
                       tr("Steel (ST)"),
                       tr("Vitrified Clay (VC)"),
                       tr("Unidentified Material (X)"),
                       tr("Unidentified Type Of Iron Or Steel (XI)"),
                       tr("Unidentified Type Of Plastics (XP)"),
                       tr("Other (Z)")});
}

// Both channel shapes carry the code "RSC": the exchange files have always had it so.
QStringList WCFormLists::pipeShapes()
{
    return blankFirst({tr("Arched (A)"), tr("Barrel (B)"), tr("Circular (C)"), tr("Egg-Shaped (E)"),
                       tr("Horseshoe (H)"), tr("Oval (O)"), tr("Rectangular (R)"), tr("Trapezoidal (T)"),
                       tr("U-Shaped With Flat Top (U)"), tr("Kerb Block (K)"), tr("Circular With Small Channel (RSC)"),
                       tr("Rectangular With Small Channel (RSC)"), tr("Other (Z)")});
}

QStringList WCFormLists::purposes(Specification specification)
{
    if (isMscc3(specification)) {
        return blankFirst(
            {tr("Specific problems on sewer related to structural or service condition defects (A)"),
             tr("Specific problems on sewer system related to infiltration (B)"),
             tr("Assessment of complete remedial or renovation works (C)"),
             tr("Pre-adoption - normally new sewers for adoption SfA (D)"),
             tr("Pre-acceptance - new sewer direct contract constructed by sewerage undertakers (E)"),
             tr("Sample survey to determine asset condition (F)"),
             tr("Associated with future capital scheme including Drainage Area Planning (G)"),
             tr("Resurvey for any reason (H)"), tr("Other (X)"), tr("Not Known (Z)")});
    }
    return blankFirst({tr("Investigation of known defects (A)"), tr("Investigation of infiltration (B)"),
                       tr("Inspection of repairs or renovations (C)"), tr("Pre-adoption survey (D)"),
                       tr("Inspection of new sewers (E)"), tr("Asset condition of sewer system (F)"),
                       tr("A Routine inspection (G)"), tr("Investigation of suspected problem (H)"),
                       tr("Investment Planning (I)"), tr("End of warranty period (J)"), tr("Other (X)")});
}

QStringList WCFormLists::cleanings()
{
    return blankFirst({tr("Yes (Y)"), tr("No (N)"), tr("Not Known (Z)")});
}

QStringList WCFormLists::locations(Specification specification)
{
    if (isMscc3(specification)) {
        return blankFirst({tr("Main Road - urban (A)"), tr("Light Road (C)"), tr("Footpath or Verge (D)"),
                           tr("Fields (E)"), tr("Gardens (F)"), tr("Woodland (G)"), tr("Difficult Access (X)")});
    }
    return blankFirst({tr("Road (RD)"), tr("Verge (VG)"), tr("Fields (FLD)"), tr("Woodland (WLD)"),
                       tr("Difficult Access (DIF)"), tr("Under A Waterway (WWY)"), tr("Other (Z)")});
}

QStringList WCFormLists::weathers(Specification specification)
{
    if (isMscc3(specification)) {
        return blankFirst(
            {tr("Dry (1)"), tr("Heavy Rain (2)"), tr("Light Rain (3)"), tr("Showers (4)"), tr("Snow (5)")});
    }
    return blankFirst({tr("No Rain Or Snow (D)"), tr("Rain (R)"), tr("Melting Snow Or Ice (S)")});
}

QStringList WCFormLists::liningMaterials(Specification specification)
{
    if (isMscc3(specification)) {
        return blankFirst({tr("Alkathene (AK)"),
                           tr("Asbestos cement (AC)"),
                           tr("Bitumen (BL)"),
                           tr("Brick (BR)"),
                           tr("Cast Iron (CI)"),
                           tr("Cement (CL)"),
                           tr("Spun Grey Iron (SI)"),
                           tr("Concrete (CO)"),
                           tr("Concrete Bolted Segments (CSB)"),
                           tr("Concrete Box Culvert (CC)"),
                           tr("Ductile Iron (DI)"),
                           tr("Plastic (PL)"),
                           tr("Polyvinyl Chloride (PVC)"),
                           tr("Polyethylene (PE)"),
                           tr("Resin (RL)"),
                           tr("Steel (ST)"),
                           tr("Vitrified Clay (VC)"),
                           tr("Polypropylene (PP)"),
                           tr("Pitch Fibre (PF)"),
                           tr("Other (XXX)"),
                           tr("Not Known (ZZZ)")});
    }
    return blankFirst({tr("Asbestos Cement (AC)"),
                       tr("Bitumen Lining (BL)"),
                       tr("Brick (BR)"),
                       tr("Cast Iron (CI)"),
                       tr("Concrete (CO)"),
                       tr("Concrete Segments (CS)"),
                       tr("Ductile Iron (DI)"),
                       tr("Epoxy (EP)"),
                       tr("Fibre Cement (FC)"),
                       tr("Fibre Reinforced Plastics (FRP)"),
                       tr("Grey Cast Iron (GI)"),
                       tr("Mixed Material Construction (MX)"),
                       tr("Polyvinyl Chloride (PVC)"),
                       tr("Polyethylene (PE)"),
                       tr("Pitch Fibre (PF)"),
                       tr("Polypropylene (PP)"),
                       tr("Polyester (PS)"),
                       tr("Reinforced Concrete (RC)"),
                       tr("Sprayed Concrete (SPC)"),
                       tr("Steel (ST)"),
                       tr("Vitrified Clay (VC)"),
                       tr("Unidentified Material (X)"),
                       tr("Other (Z)")});
}

QStringList WCFormLists::temperatures()
{
    return blankFirst({tr("Above Freezing (A)"), tr("Below Freezing (B)")});
}

QStringList WCFormLists::usages()
{
    return blankFirst({tr("Combined (C)"), tr("Foul (F)"), tr("Surface Water (S)"), tr("Trade Effluent (T)"),
                       tr("Culverted Watercourse (W)"), tr("Subsoil Or Field Drainage (LD)")});
}

QStringList WCFormLists::pipeTypes()
{
    return blankFirst({tr("Gravity Drain/Sewer (A)"), tr("Rising Main (B)"), tr("Vacuum Pipeline (V)")});
}

QStringList WCFormLists::liningTypes()
{
    return blankFirst({tr("Lining Inserted During Manufacture (M)"), tr("Sprayed Lining (SP)"),
                       tr("Cured-In-Place Lining (CIP)"), tr("Segmented Lining (SEG)"),
                       tr("Lining With Discrete Pipes (DP)"), tr("Lining With Continuous Pipe (CP)"),
                       tr("Close-Fit Lining (CF)"), tr("Spirally-Wound Lining (SW)")});
}

QStringList WCFormLists::flowControls()
{
    return blankFirst({tr("No Flow Control (N)"), tr("Flows Blocked Upstream (BL)"),
                       tr("Flows Partially Blocked Upstream (PB)"), tr("Other (X)")});
}

QStringList WCFormLists::inspectionMethods()
{
    return blankFirst({tr("CCTV (B)"), tr("Direct Inspection - Man Entry (A)"),
                       tr("Inspection From Manhole Or Inspection Chamber (C)")});
}

QStringList WCFormLists::finalCategories()
{
    return blankFirst({tr("Category A (A)"), tr("Category B (B)"), tr("Category C (C)"), tr("Unknown (Z)")});
}
