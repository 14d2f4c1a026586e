#pragma once
// Registration of the scene-graph classes and the scene-file headers, run
// once by SoDB::init().
namespace orvex {
void initSceneGraph();
}
