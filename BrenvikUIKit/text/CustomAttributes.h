#pragma once

#include "BrenvikUIKit/text/BKUKCustomAttributeOperator.h"

namespace bkuk {

/// The text with what the operator puts in place of its stretches that carry attributes which are not the
/// platform's; empty when nothing was replaced. The operator is given the stretches of `shown`, which has the
/// same characters as `text` and perhaps more attributes.
[[nodiscard]] Ref<NSAttributedString> replacingCustomAttributes(const NSAttributedString& shown,
                                                                const NSAttributedString& text,
                                                                BKUKCustomAttributeOperator& replacer);

}  // namespace bkuk
