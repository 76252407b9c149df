#include "support/answers_within.h"

#include "support/paths.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

struct Answers {
    std::mutex access;
    std::condition_variable changed;
    std::vector<std::optional<bool>> given;
};

void ask(const std::function<bool()> & question, std::size_t index, const std::shared_ptr<Answers> & answers)
{
    try {
        std::thread([question, index, answers] {
            const bool answer = question();
            const std::lock_guard lock(answers->access);
            answers->given[index] = answer;
            answers->changed.notify_all();
        }).detach();
    } catch (const std::system_error &) { // no thread to be had: no answer either
    }
}

}

std::vector<std::optional<bool>> answers_within(std::chrono::milliseconds limit,
                                                const std::vector<std::function<bool()>> & questions)
{
    const auto answers = std::make_shared<Answers>();
    answers->given.resize(questions.size());
    for (std::size_t i = 0; i < questions.size(); ++i) ask(questions[i], i, answers);
    std::unique_lock lock(answers->access);
    answers->changed.wait_for(lock, limit, [&] { return std::ranges::all_of(answers->given, &std::optional<bool>::has_value); });
    return answers->given;
}

bool path_answers(const std::string & path)
{
    return answers_within(std::chrono::milliseconds(500), { [path] { return !find_file(path).empty(); } })[0].has_value();
}
