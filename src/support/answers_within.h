#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Asks all questions at once and waits for `limit` altogether. A question that has not been answered by then has no answer; its
/// thread is left to itself, so a question owns all that it uses.
///
/// For looks at paths that a user has long forgotten: on a share that has gone, a look can take minutes.
std::vector<std::optional<bool>> answers_within(std::chrono::milliseconds limit,
                                                const std::vector<std::function<bool()>> & questions);

/// False when a look at the path has no answer within half a second: it lies on a share that has gone. A path that is missing
/// answers too.
bool path_answers(const std::string & path);
