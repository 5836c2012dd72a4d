// What methods have made, found in the answers of the methods that read it back.
#pragma once

#include <vector>

#include "survey.h"

namespace lmqctl {

/// The calls of `maker` that an answer tells of: in each an object with its arguments by name, as they are on the wire,
/// the outputs with ids among them. The answer is that of the method which reads back what `maker` makes.
std::vector<Json> made_in(const Method &maker, const Reading &reading);

/// The readings of a method that goes from one thing to the next: each call takes what the one before answered.
std::vector<Reading> walk(Context &context, const ReadBack &read_back);

}  // namespace lmqctl
