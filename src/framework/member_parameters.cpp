#include "framework/member_parameters.h"

namespace obk::detail {

std::vector<Parameter> parametersOf(std::span<const ParameterType> types,
                                    std::span<const ParameterName> names) {
    std::vector<Parameter> parameters;
    parameters.reserve(types.size());
    for (size_t at = 0; at < types.size(); ++at)
        parameters.push_back({names[at].name, types[at].type, types[at].byReference, names[at].defaultValue});
    return parameters;
}

}  // namespace obk::detail
