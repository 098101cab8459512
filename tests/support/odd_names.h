// Column names that a criterion or an order could misread.
#pragma once

#include "tessaria/string.h"

namespace tessaria::test {

inline constexpr const char16_t* kOddNames[] = {
    u"Nome Completo", u"nome desc", u"nome ASC", u"a]b",        u"a]]b", u"]",   u"]]",
    u"[codigo]",      u"[codigo",   u"codigo]",  u"[",          u"a=b",  u"a<b", u"a>=b",
    u"a,b",           u"a, b desc", u"like",     u"x like 'y'", u"a\"b", u"a'b", u"preço (%)",
    u"desc",          u" nome ",    u"?column?", u"count(*)",   u"a.b",  u"#",   u"null",
};

}  // namespace tessaria::test
