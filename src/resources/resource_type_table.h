// The types of resources that are known, and the string of ResourceModule that tells what each one is. The
// strings are in res/resource_type_strings.rc.
#ifndef TIDEWELL_RESOURCES_RESOURCE_TYPE_TABLE_H
#define TIDEWELL_RESOURCES_RESOURCE_TYPE_TABLE_H

#include "res/resource.h"

#include <cstdint>

namespace tidewell {

// A type as a number, its first character in the most significant byte.
constexpr uint32_t TypeNumber(const char (&type)[5]) {
    uint32_t number = 0;
    for (int i = 0; i < 4; ++i)
        number = number << 8 | static_cast<uint8_t>(type[i]);
    return number;
}

struct TypeRow {
    uint32_t type;
    uint16_t description;  // a string's number
    uint16_t unused = 0;
};
static_assert(sizeof(TypeRow) == 8);

// Those of system files, the others in upper case, those in lower case, and what came later: the strings of
// locale libraries keep their numbers.
constexpr TypeRow kKnownTypes[] = {
    {TypeNumber("CACH"), 2001}, {TypeNumber("DSAT"), 2002}, {TypeNumber("FCMT"), 2003},
    {TypeNumber("FMTR"), 2004}, {TypeNumber("FOBJ"), 2005}, {TypeNumber("FRSV"), 2006},
    {TypeNumber("INTL"), 2007}, {TypeNumber("KMAP"), 2008}, {TypeNumber("KSWP"), 2009},
    {TypeNumber("MBDF"), 2010}, {TypeNumber("MMAP"), 2011}, {TypeNumber("NBPC"), 2012},
    {TypeNumber("PDEF"), 2013}, {TypeNumber("PTCH"), 2014}, {TypeNumber("ROv#"), 2015},
    {TypeNumber("ROvr"), 2016}, {TypeNumber("SERD"), 2017}, {TypeNumber("ADBS"), 2018},
    {TypeNumber("ALRT"), 2019}, {TypeNumber("BNDL"), 2020}, {TypeNumber("CDEF"), 2021},
    {TypeNumber("CDEV"), 2022}, {TypeNumber("CNTL"), 2023}, {TypeNumber("CODE"), 2024},
    {TypeNumber("CURS"), 2025}, {TypeNumber("DITL"), 2026}, {TypeNumber("DLOG"), 2027},
    {TypeNumber("DRVR"), 2028}, {TypeNumber("FKEY"), 2029}, {TypeNumber("FOND"), 2030},
    {TypeNumber("FONT"), 2031}, {TypeNumber("FREF"), 2032}, {TypeNumber("ICN#"), 2033},
    {TypeNumber("ICON"), 2034}, {TypeNumber("INIT"), 2035}, {TypeNumber("KCAP"), 2036},
    {TypeNumber("KCHR"), 2037}, {TypeNumber("LDEF"), 2038}, {TypeNumber("MBAR"), 2039},
    {TypeNumber("MDEF"), 2040}, {TypeNumber("MENU"), 2041}, {TypeNumber("NFNT"), 2042},
    {TypeNumber("PACK"), 2043}, {TypeNumber("PAT "), 2044}, {TypeNumber("PAT#"), 2045},
    {TypeNumber("PICT"), 2046}, {TypeNumber("POST"), 2047}, {TypeNumber("PREC"), 2048},
    {TypeNumber("SICN"), 2049}, {TypeNumber("SIZE"), 2050}, {TypeNumber("STR "), 2051},
    {TypeNumber("STR#"), 2052}, {TypeNumber("WDEF"), 2053}, {TypeNumber("WIND"), 2054},
    {TypeNumber("actb"), 2055}, {TypeNumber("alis"), 2056}, {TypeNumber("card"), 2057},
    {TypeNumber("cctb"), 2058}, {TypeNumber("cicn"), 2059}, {TypeNumber("clut"), 2060},
    {TypeNumber("crsr"), 2061}, {TypeNumber("dctb"), 2062}, {TypeNumber("ddev"), 2063},
    {TypeNumber("eadr"), 2064}, {TypeNumber("fctb"), 2065}, {TypeNumber("hdlg"), 2066},
    {TypeNumber("hfdr"), 2067}, {TypeNumber("hmnu"), 2068}, {TypeNumber("hovr"), 2069},
    {TypeNumber("hrct"), 2070}, {TypeNumber("hwin"), 2071}, {TypeNumber("icl4"), 2072},
    {TypeNumber("icl8"), 2073}, {TypeNumber("ics#"), 2074}, {TypeNumber("ics4"), 2075},
    {TypeNumber("ics8"), 2076}, {TypeNumber("ictb"), 2077}, {TypeNumber("itl0"), 2078},
    {TypeNumber("itl1"), 2079}, {TypeNumber("itl2"), 2080}, {TypeNumber("itl4"), 2081},
    {TypeNumber("itlk"), 2082}, {TypeNumber("kcs#"), 2083}, {TypeNumber("kcs4"), 2084},
    {TypeNumber("kcs8"), 2085}, {TypeNumber("mctb"), 2086}, {TypeNumber("mntr"), 2087},
    {TypeNumber("moov"), 2088}, {TypeNumber("pltt"), 2089}, {TypeNumber("ppat"), 2090},
    {TypeNumber("qdef"), 2091}, {TypeNumber("qrsc"), 2092}, {TypeNumber("sect"), 2093},
    {TypeNumber("sfnt"), 2094}, {TypeNumber("snd "), 2095}, {TypeNumber("snth"), 2096},
    {TypeNumber("styl"), 2097}, {TypeNumber("sysz"), 2098}, {TypeNumber("vers"), 2099},
    {TypeNumber("wctb"), 2100}, {TypeNumber("wstr"), 2101}, {TypeNumber("cdev"), 2102},
};
constexpr int kKnownTypeCount = sizeof kKnownTypes / sizeof kKnownTypes[0];
static_assert(kKnownTypes[0].description == IDS_FIRST_RESOURCE_TYPE &&
              kKnownTypes[kKnownTypeCount - 1].description == IDS_LAST_RESOURCE_TYPE &&
              kKnownTypeCount == IDS_LAST_RESOURCE_TYPE - IDS_FIRST_RESOURCE_TYPE + 1);

}  // namespace tidewell

#endif
