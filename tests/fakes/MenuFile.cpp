// SPDX-License-Identifier: MIT
#include "tests/fakes/MenuFile.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarnwick {

std::vector<fixture::MenuText> MenuFile::parse(const QString& text)
{
    std::istringstream lines(text.toStdString());
    return fixture::MenuText::read(lines);
}

std::vector<fixture::MenuText> MenuFile::read(const QString& name)
{
    const std::string path = TARNWICK_TEST_DATA "/" + name.toStdString() + ".menu";
    std::ifstream lines(path);
    if (!lines)
        throw std::runtime_error("cannot read " + path);
    return fixture::MenuText::read(lines);
}

} // namespace tarnwick
