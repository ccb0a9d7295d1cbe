#include "agent/engine/CharacterName.h"

#include <algorithm>
#include <functional>

namespace agent::engine
{

namespace
{

constexpr std::uint16_t PrimaryMask = 0x03FF;
constexpr std::uint16_t English = 0x09;

struct LanguageCode {
    QLocale::Language language;
    std::uint16_t primary;
};

// Primary language codes of the Windows language identifiers.
constexpr LanguageCode Primaries[] = {
    {QLocale::Arabic, 0x01},     {QLocale::Bulgarian, 0x02},       {QLocale::Catalan, 0x03},
    {QLocale::Chinese, 0x04},    {QLocale::Czech, 0x05},           {QLocale::Danish, 0x06},
    {QLocale::German, 0x07},     {QLocale::Greek, 0x08},           {QLocale::English, 0x09},
    {QLocale::Spanish, 0x0A},    {QLocale::Finnish, 0x0B},         {QLocale::French, 0x0C},
    {QLocale::Hebrew, 0x0D},     {QLocale::Hungarian, 0x0E},       {QLocale::Icelandic, 0x0F},
    {QLocale::Italian, 0x10},    {QLocale::Japanese, 0x11},        {QLocale::Korean, 0x12},
    {QLocale::Dutch, 0x13},      {QLocale::NorwegianBokmal, 0x14}, {QLocale::Polish, 0x15},
    {QLocale::Portuguese, 0x16}, {QLocale::Romanian, 0x18},        {QLocale::Russian, 0x19},
    {QLocale::Croatian, 0x1A},   {QLocale::Slovak, 0x1B},          {QLocale::Swedish, 0x1D},
    {QLocale::Thai, 0x1E},       {QLocale::Turkish, 0x1F},         {QLocale::Indonesian, 0x21},
    {QLocale::Ukrainian, 0x22},  {QLocale::Slovenian, 0x24},       {QLocale::Estonian, 0x25},
    {QLocale::Latvian, 0x26},    {QLocale::Lithuanian, 0x27},      {QLocale::Vietnamese, 0x2A},
    {QLocale::Basque, 0x2D},     {QLocale::Hindi, 0x39},
};

struct Dialect {
    QLocale::Language language;
    QLocale::Territory territory;
    std::uint16_t sublanguage;
};

// Sublanguages other than the default 1 that a character file is likely to carry.
constexpr Dialect Dialects[] = {
    {QLocale::English, QLocale::UnitedKingdom, 2}, {QLocale::English, QLocale::Australia, 3},
    {QLocale::English, QLocale::Canada, 4},        {QLocale::German, QLocale::Switzerland, 2},
    {QLocale::German, QLocale::Austria, 3},        {QLocale::French, QLocale::Belgium, 2},
    {QLocale::French, QLocale::Canada, 3},         {QLocale::French, QLocale::Switzerland, 4},
    {QLocale::Spanish, QLocale::Spain, 3},         {QLocale::Spanish, QLocale::Mexico, 2},
    {QLocale::Portuguese, QLocale::Portugal, 2},   {QLocale::Chinese, QLocale::China, 2},
    {QLocale::Dutch, QLocale::Belgium, 2},
};

const acs::LocalizedInfo* findBy(const std::vector<acs::LocalizedInfo>& names,
                                 const std::function<bool(std::uint16_t)>& matches)
{
    const auto found =
        std::find_if(names.begin(), names.end(),
                     [&](const acs::LocalizedInfo& info) { return matches(info.language); });
    return found == names.end() ? nullptr : &*found;
}

} // namespace

std::uint16_t languageId(const QLocale& locale)
{
    const auto primary =
        std::find_if(std::begin(Primaries), std::end(Primaries),
                     [&](const LanguageCode& code) { return code.language == locale.language(); });
    if (primary == std::end(Primaries))
        return 0;
    std::uint16_t sublanguage = 1;
    for (const Dialect& dialect : Dialects) {
        if (dialect.language == locale.language() && dialect.territory == locale.territory())
            sublanguage = dialect.sublanguage;
    }
    return std::uint16_t(sublanguage << 10 | primary->primary);
}

QString characterName(const std::vector<acs::LocalizedInfo>& names, std::uint16_t language)
{
    const acs::LocalizedInfo* info = nullptr;
    if (language != 0) {
        info = findBy(names, [&](std::uint16_t id) { return id == language; });
        if (!info)
            info = findBy(names, [&](std::uint16_t id) {
                return (id & PrimaryMask) == (language & PrimaryMask);
            });
    }
    if (!info)
        info = findBy(names, [](std::uint16_t id) { return (id & PrimaryMask) == English; });
    if (!info && !names.empty())
        info = &names.front();
    return info ? info->name.trimmed() : QString();
}

} // namespace agent::engine
