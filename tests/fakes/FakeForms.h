#pragma once

#include "platform/desk/Forms.h"

#include <map>

namespace zv::fakes {

/// Fills in what the test says, by the fields' ids; says nothing where there is nothing to say.
class FakeForms : public Forms {
public:
    std::optional<std::vector<FormField>> ask(Form const& form) override
    {
        auto fields = form.fields;
        for (auto& field : fields) {
            if (answers.contains(field.id))
                field.text = answers.at(field.id), field.isOn = !field.text.empty();
        }
        problem = form.problem ? form.problem(fields) : std::string();
        return answers.empty() || !problem.empty() ? std::nullopt : std::optional(fields);
    }

    std::map<std::string, std::string> answers; ///< empty: called off
    std::string problem;
};

} // namespace zv::fakes
