#include <Orvex/SoPrimitiveVertex.h>

SoPrimitiveVertex::SoPrimitiveVertex()
    : m_point(0.0f, 0.0f, 0.0f), m_normal(0.0f, 0.0f, 1.0f), m_textureCoords(0.0f, 0.0f, 0.0f, 1.0f) {}

SoPrimitiveVertex::~SoPrimitiveVertex() = default;
