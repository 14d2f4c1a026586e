#include <Orvex/SoInputParameters.h>

#include "ReadLimits.h"

SoInputParameters::SoInputParameters()
    : m_maxInputBytes(orvex::kDefaultMaxInputBytes), m_maxInflatedBytes(orvex::kDefaultMaxInflatedBytes) {}

void SoInputParameters::setMaxInputBytes(size_t maxBytes) { m_maxInputBytes = maxBytes; }
size_t SoInputParameters::getMaxInputBytes() const { return m_maxInputBytes; }
void SoInputParameters::setMaxInflatedBytes(size_t maxBytes) { m_maxInflatedBytes = maxBytes; }
size_t SoInputParameters::getMaxInflatedBytes() const { return m_maxInflatedBytes; }
