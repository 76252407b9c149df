#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_export.h"

#include <gtest/gtest.h>

namespace {

struct Answering : RecordedDialogs {
    bool answer = false;
    bool question(const std::string & text) override
    {
        RecordedDialogs::question(text);
        return answer;
    }
};

/// What an export of 2 x 2 x 2 cells writes; their values in the file are 1, 2, 3 and so on in memory order, the last is null.
std::string exported(bool binary, const NodeWindow & window)
{
    const TemporaryFolder folder;
    RecordedHost fakes;
    Answering dialogs;
    dialogs.answer = binary;
    Host host{ dialogs, fakes.progress, fakes.settings, fakes.launcher, fakes.debug };
    UbcMesh mesh;
    mesh.total_cells = { 2, 2, 2 };
    const List<float> values = { 1000, 2000, 3000, 4000, 5000, 6000, 7000, -1e32F };
    export_model(folder.write("model", "what was there before, and longer than that"), mesh, window, values, 3,
                 { .null_value = -1, .scale = 1000 }, host);
    EXPECT_EQ(dialogs.questions, std::vector<std::string>{ "Export model in binary format?" });
    return folder.read("model");
}

constexpr NodeWindow whole = { 1, 3, 1, 3, 1, 3 }, southern = { 1, 3, 1, 2, 1, 3 };

}

TEST(export_model, given_yes_then_the_bytes_of_the_binary_form)
{
    const std::string one("\x00\x00\x80\x3F", 4), two("\x00\x00\x00\x40", 4), three("\x00\x00\x40\x40", 4),
        four("\x00\x00\x80\x40", 4), five("\x00\x00\xA0\x40", 4), six("\x00\x00\xC0\x40", 4), seven("\x00\x00\xE0\x40", 4),
        null("\xAE\xC5\x9D\xF4", 4);
    // as the cells lie in memory, but of a window column after column
    EXPECT_EQ(exported(true, whole), "UBC\x03" + one + two + three + four + five + six + seven + null);
    EXPECT_EQ(exported(true, southern), "UBC\x03" + one + five + two + six);
}

TEST(export_model, given_no_then_the_text)
{
    EXPECT_EQ(exported(false, southern), " 1.00000E+00\r\n 5.00000E+00\r\n 2.00000E+00\r\n 6.00000E+00\r\n");
}
