#include "utilities/igrf_record.h"

#include "support/fault.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "support/text.h"
#include "utilities/dms_text.h"
#include "utilities/reference_field.h"

#include <array>
#include <chrono>
#include <cmath>
#include <optional>

namespace {

constexpr double minutes_per_degree = 60;

/// A whole number that is the whole text; 0, which is no day, month or year, for any other text.
std::int32_t whole_number(std::string_view text)
{
    if (!is_numeric(text)) return 0;
    const double value = leading_number(text);
    return value == std::floor(value) && value >= 1 && value <= 9999 ? static_cast<std::int32_t>(value) : 0;
}

/// The year and the part of it that is over when the day begins. The days of the year divide it, so that its last day stays in
/// it.
double decimal_year_of(const std::chrono::year_month_day & day)
{
    using namespace std::chrono;
    const sys_days first = day.year() / January / 1, next_first = (day.year() + years(1)) / January / 1;
    const auto days_over = static_cast<double>((sys_days(day) - first).count());
    return static_cast<int>(day.year()) + days_over / static_cast<double>((next_first - first).count());
}

/// Nothing for a text that is not of three whole numbers that are a day of the calendar.
std::optional<IgrfDate> calendar_date(std::string_view text)
{
    std::string month_and_year, year_text;
    const std::int32_t day = whole_number(split_at_first('/', text, month_and_year));
    const std::int32_t month = whole_number(split_at_first('/', month_and_year, year_text)), year = whole_number(year_text);
    const std::chrono::year_month_day date{ std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                            std::chrono::day(static_cast<unsigned>(day)) };
    if (day == 0 || month == 0 || year == 0 || month > 12 || day > 31 || !date.ok()) return {};
    return IgrfDate{ decimal_year_of(date), day, month, year };
}

/// The angle of a text; nothing, with one message, when it is none.
std::optional<double> angle_of(const std::string & text, DmsAxis axis, const char * fault, Dialogs & dialogs)
{
    const double angle = parse_dms_text(text, axis);
    if (check_dms_text(text, axis) == Status::good && angle != no_angle) return angle;
    dialogs.message(fault);
    return {};
}

Status read_texts(const IgrfTexts & texts, IgrfRecord & record, Dialogs & dialogs)
{
    if (parse_igrf_date(texts.date, record.date) != Status::good) {
        dialogs.message("The date is invalid");
        return Status::bad;
    }
    const auto longitude = angle_of(texts.longitude, DmsAxis::longitude, "The longitude is invalid", dialogs);
    if (!longitude) return Status::bad;
    const auto latitude = angle_of(texts.latitude, DmsAxis::latitude, "The latitude is invalid", dialogs);
    if (!latitude) return Status::bad;
    if (!is_numeric(texts.elevation)) {
        dialogs.message("The elevation is invalid");
        return Status::bad;
    }
    record.longitude = *longitude, record.latitude = *latitude, record.elevation = leading_number(texts.elevation);
    return Status::good;
}

Status compute(IgrfRecord & record, Dialogs & dialogs)
{
    ReferenceField field;
    const std::int32_t code = IGRF10(record.date.decimal_year, record.latitude, record.longitude, record.elevation, field);
    if (code != 0) {
        dialogs.message("The IGRF calculation returned error code: " + general_text(code) + ": " + reference_field_fault(code));
        return Status::bad;
    }
    record.intensity = field.intensity, record.intensity_sv = field.intensity_sv;
    record.inclination = field.inclination, record.inclination_sv = field.inclination_sv / minutes_per_degree;
    record.declination = field.declination, record.declination_sv = field.declination_sv / minutes_per_degree;
    record.computed = true;
    return Status::good;
}

std::string trimmed_dms(double angle) { return std::string(trim(format_dms_text(angle, 0))); }

}

Status parse_igrf_date(std::string_view text, IgrfDate & date)
{
    const bool number = is_numeric(text);
    const std::optional<IgrfDate> read = number ? IgrfDate{ leading_number(text) } : calendar_date(text);
    if (!read) return Status::bad;
    date = *read;
    return Status::good;
}

std::string igrf_date_text(const IgrfDate & date)
{
    if (date.day == 0) return general_text(date.decimal_year);
    return format_number(date.day, "00") + "/" + format_number(date.month, "00") + "/" + format_number(date.year, "0000");
}

Status calculate_igrf(const IgrfTexts & texts, IgrfRecord & record, Host & host)
{
    IgrfRecord calculated;
    calculated.name = record.name;
    try {
        if (read_texts(texts, calculated, host.dialogs) != Status::good) return Status::bad;
        if (compute(calculated, host.dialogs) != Status::good) return Status::bad;
    } catch (const FileFault & fault) {
        host.dialogs.message(fault.what());
        return Status::bad;
    }
    record = calculated;
    return Status::good;
}

IgrfShown igrf_shown(const IgrfRecord & record)
{
    IgrfShown shown;
    shown.date = igrf_date_text(record.date);
    shown.longitude = trimmed_dms(record.longitude), shown.latitude = trimmed_dms(record.latitude);
    shown.elevation = format_number(record.elevation, "0.0");
    shown.intensity = format_number(record.intensity, "0.0");
    shown.inclination = format_number(record.inclination, "0.000");
    shown.declination = format_number(record.declination, "0.000");
    shown.intensity_sv = format_number(record.intensity_sv, "0.00");
    shown.inclination_sv = format_number(record.inclination_sv, "0.000");
    shown.declination_sv = format_number(record.declination_sv, "0.000");
    return shown;
}
