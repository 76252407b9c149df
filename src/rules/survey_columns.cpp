#include "rules/survey_columns.h"

#include "support/text.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view longitude_words[] = { "LON", "LONG", "LONGITUDE" };
constexpr std::string_view latitude_words[] = { "LAT", "LATITUDE" };
constexpr std::string_view date_words[] = { "DATE", "YYYYMMDD", "DECIMALYEAR" };
/// What stands before or behind these words: datums, units and whose they are.
constexpr std::string_view additions[] = { "GDA94", "GDA2020", "WGS84", "NAD83", "NAD27", "AGD66",  "AGD84",  "ETRS89",
                                           "GPS",   "DEG",     "DD",    "UTC",   "FLT",   "FLIGHT", "SURVEY", "FLOWN" };

/// Letters in upper case and digits; the rest only divides words.
std::string bare(std::string_view name)
{
    std::string result = upper_case(name);
    std::erase_if(result, [](char c) { return !((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')); });
    return result;
}

template <std::size_t count>
bool means(std::string_view name, const std::string_view (&words)[count])
{
    if (std::ranges::find(words, name) != std::end(words)) return true;
    return std::ranges::any_of(additions, [&](std::string_view addition) {
        if (name.size() <= addition.size()) return false;
        const std::string_view begin = name.substr(0, name.size() - addition.size()), end = name.substr(addition.size());
        return (name.starts_with(addition) && std::ranges::find(words, end) != std::end(words)) ||
               (name.ends_with(addition) && std::ranges::find(words, begin) != std::end(words));
    });
}

template <std::size_t count>
std::int32_t column_of(std::span<const std::string> names, const std::string_view (&words)[count])
{
    const auto found = std::ranges::find_if(names, [&](const std::string & name) { return means(bare(name), words); });
    return found == names.end() ? 0 : static_cast<std::int32_t>(found - names.begin()) + 1;
}

bool is_digits(std::string_view text) { return text.find_first_not_of("0123456789") == text.npos; }

/// A date that has its year first, the other way round; any other text as it is.
std::string day_first(std::string_view text)
{
    std::array<std::string_view, 3> parts; // year, month, day
    const bool divided = text.size() >= 8 && (text[4] == '/' || text[4] == '-');
    if (divided) {
        const std::size_t second = text.find(text[4], 5);
        if (second == text.npos) return std::string(text);
        parts = { text.substr(0, 4), text.substr(5, second - 5), text.substr(second + 1) };
    } else if (text.size() == 8 && is_digits(text)) {
        parts = { text.substr(0, 4), text.substr(4, 2), text.substr(6) };
    } else {
        return std::string(text);
    }
    return std::string(parts[2]) + "/" + std::string(parts[1]) + "/" + std::string(parts[0]);
}

}

SurveyColumns survey_columns(std::span<const std::string> names)
{
    return { column_of(names, longitude_words), column_of(names, latitude_words), column_of(names, date_words) };
}

std::optional<IgrfDate> survey_date(std::string_view text)
{
    constexpr double first_flown = 1940, last_flown = 2100;
    IgrfDate date;
    if (parse_igrf_date(day_first(without_quotes(text)), date) != Status::good) return std::nullopt;
    if (!(date.decimal_year >= first_flown && date.decimal_year < last_flown)) return std::nullopt;
    return date;
}
