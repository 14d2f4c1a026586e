// The light sources.

#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoPointLight.h>
#include <Orvex/nodes/SoSpotLight.h>

SO_NODE_ABSTRACT_SOURCE(SoLight)

SoLight::SoLight() {
  SO_NODE_CONSTRUCTOR(SoLight);
  SO_NODE_ADD_FIELD(on, (true));
  SO_NODE_ADD_FIELD(intensity, (1.0f));
  SO_NODE_ADD_FIELD(color, (1.0f, 1.0f, 1.0f));
}

SoLight::~SoLight() = default;

void SoLight::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoLight, SoNode, "Node"); }

SO_NODE_SOURCE(SoDirectionalLight)

SoDirectionalLight::SoDirectionalLight() {
  SO_NODE_CONSTRUCTOR(SoDirectionalLight);
  SO_NODE_ADD_FIELD(direction, (0.0f, 0.0f, -1.0f));
}

SoDirectionalLight::~SoDirectionalLight() = default;

void SoDirectionalLight::initClass() { SO_NODE_INIT_CLASS(SoDirectionalLight, SoLight, "Light"); }

SO_NODE_SOURCE(SoPointLight)

SoPointLight::SoPointLight() {
  SO_NODE_CONSTRUCTOR(SoPointLight);
  SO_NODE_ADD_FIELD(location, (0.0f, 0.0f, 1.0f));
}

SoPointLight::~SoPointLight() = default;

void SoPointLight::initClass() { SO_NODE_INIT_CLASS(SoPointLight, SoLight, "Light"); }

SO_NODE_SOURCE(SoSpotLight)

SoSpotLight::SoSpotLight() {
  SO_NODE_CONSTRUCTOR(SoSpotLight);
  SO_NODE_ADD_FIELD(location, (0.0f, 0.0f, 1.0f));
  SO_NODE_ADD_FIELD(direction, (0.0f, 0.0f, -1.0f));
  SO_NODE_ADD_FIELD(dropOffRate, (0.0f));
  SO_NODE_ADD_FIELD(cutOffAngle, (0.785398163f));
}

SoSpotLight::~SoSpotLight() = default;

void SoSpotLight::initClass() { SO_NODE_INIT_CLASS(SoSpotLight, SoLight, "Light"); }
