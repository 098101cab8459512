// The numbers that the tax office gives to people (CPF) and to companies (CNPJ).
#pragma once

#include <QString>

namespace tessaria::demo {

/// Who the customer is.
enum class Person { Natural, Legal };

/// By the length of the digits: more than a CPF has is a company's.
Person personOf(const QString& digits);

}  // namespace tessaria::demo
