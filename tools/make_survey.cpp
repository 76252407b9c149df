// Writes a survey of any size: readings along flight lines, points of the ground, and for a tiled case a base mesh and a model.
// Always the same bytes for the same numbers.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double west = 450000, south = 7550000; // corner of the core, metres

/// A stream of numbers between 0 and 1 that is the same everywhere.
class Noise {
public:
    double next()
    {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(state_ >> 11) / 9007199254740992.0;
    }
    double around(double width) { return (next() - 0.5) * 2 * width; }

private:
    std::uint64_t state_ = 20240607;
};

class Output {
public:
    explicit Output(const std::string & path) : path_(path), file_(std::fopen(path.c_str(), "wb"))
    {
        if (file_ == nullptr) fail();
    }
    ~Output()
    {
        if (file_ != nullptr) std::fclose(file_);
    }
    Output(const Output &) = delete;
    Output & operator=(const Output &) = delete;

    template <class... Values>
    void print(fmt::string_view pattern, const Values &... values)
    {
        fmt::vformat_to(std::back_inserter(text_), pattern, fmt::make_format_args(values...));
        if (text_.size() > (1U << 20)) flush();
    }
    void close()
    {
        flush();
        if (std::fclose(std::exchange(file_, nullptr)) != 0) fail();
    }

private:
    void flush()
    {
        if (std::fwrite(text_.data(), 1, text_.size(), file_) != text_.size()) fail();
        text_.clear();
    }
    [[noreturn]] void fail() const
    {
        std::perror(path_.c_str());
        std::exit(1);
    }

    std::string path_;
    std::FILE * file_;
    fmt::memory_buffer text_;
};

/// A hilly surface between about 200 and 400 m.
double ground(double x, double y)
{
    const double u = (x - west) / 1000, v = (y - south) / 1000;
    return 300 + 45 * std::sin(u * 0.9) * std::cos(v * 0.7) + 30 * std::sin(u * 2.3 + v * 1.7) + 10 * std::cos(v * 5.1);
}

/// About 100 bytes a reading, as contractors write them.
void write_readings(const std::string & path, std::int64_t count, double width, double height, Noise & noise)
{
    const auto lines = static_cast<std::int64_t>(std::sqrt(static_cast<double>(count) / 12)) + 1;
    const std::int64_t per_line = (count + lines - 1) / lines;
    Output file(path);
    file.print("line,x,y,z,nT,fiducial,longitude,latitude,date,radar,diurnal\n");
    for (std::int64_t i = 0; i < count; ++i) {
        const double along = (static_cast<double>(i % per_line) + 0.5) / static_cast<double>(per_line);
        const double across = (static_cast<double>(i / per_line) + 0.5) / static_cast<double>(lines);
        const double x = west + width * along, y = south + height * across + noise.around(3);
        const double radar = 80 + noise.around(5);
        const double value = 100 + 400 * std::sin(x / 900) * std::cos(y / 1100) + noise.around(2);
        file.print("L{},{:.2f},{:.2f},{:.2f},{:.3f},{:.1f},{:.7f},{:.7f},20240607,{:.2f},{:.2f}\n", 1000 + i / per_line, x, y,
                   ground(x, y) + radar, value, 0.1 * static_cast<double>(i), 138.5 + x * 1e-7, -22.1 + y * 1e-9, radar,
                   noise.around(30));
    }
    file.close();
}

void write_ground(const std::string & path, std::int64_t count, double width, double height, Noise & noise)
{
    Output file(path);
    for (std::int64_t i = 0; i < count; ++i) {
        const double x = west - 0.2 * width + 1.4 * width * noise.next(), y = south - 0.2 * height + 1.4 * height * noise.next();
        file.print("{:.2f} {:.2f} {:.2f}\n", x, y, ground(x, y));
    }
    file.close();
}

void write_base_mesh(const std::string & path, std::int64_t columns, std::int64_t rows, std::int64_t layers, double cell,
                     double top)
{
    Output file(path);
    file.print("{} {} {}\r\n{} {} {}\r\n{}*{}\r\n{}*{}\r\n{}*25\r\n", columns, rows, layers, west, south, top, columns, cell,
               rows, cell, layers);
    file.close();
}

void write_base_model(const std::string & path, std::int64_t cells, Noise & noise)
{
    Output file(path);
    for (std::int64_t i = 0; i < cells; ++i)
        file.print("{:.7E}\r\n", 0.02 * std::sin(static_cast<double>(i) / 900) + noise.around(0.001));
    file.close();
}

}

int main(int count, char ** arguments)
{
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() < 5) {
        std::puts(
            "usage: make_survey FOLDER READINGS POINTS WIDTH HEIGHT [BASE_COLUMNS BASE_ROWS BASE_LAYERS BASE_CELL BASE_TOP]");
        return 2;
    }
    const auto whole = [&](std::size_t i) { return std::atoll(words[i].c_str()); };
    const double width = std::atof(words[3].c_str()), height = std::atof(words[4].c_str());
    Noise noise;
    write_readings(words[0] + "/readings.csv", whole(1), width, height, noise);
    write_ground(words[0] + "/ground.xyz", whole(2), width, height, noise);
    if (words.size() < 10) return 0;
    write_base_mesh(words[0] + "/base.msh", whole(5), whole(6), whole(7), std::atof(words[8].c_str()),
                    std::atof(words[9].c_str()));
    write_base_model(words[0] + "/base.sus", whole(5) * whole(6) * whole(7), noise);
    return 0;
}
