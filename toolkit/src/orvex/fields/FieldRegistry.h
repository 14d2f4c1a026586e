#pragma once
// Registration of every concrete field class (called by SoField::initClasses).
namespace orvex {
void initFieldClasses();
}
