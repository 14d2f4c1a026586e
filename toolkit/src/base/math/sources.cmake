# Math value types and handle-backed Sb* classes, compiled into orvexbase.
set(_orvex_math_dir ${CMAKE_CURRENT_LIST_DIR})
list(APPEND ORVEXBASE_EXTRA_SOURCES
  ${_orvex_math_dir}/MatrixMath.cpp
  ${_orvex_math_dir}/SbVec.cpp
  ${_orvex_math_dir}/SbBox.cpp
  ${_orvex_math_dir}/SbXfBox3.cpp
  ${_orvex_math_dir}/SbMatrix.cpp
  ${_orvex_math_dir}/SbRotation.cpp
  ${_orvex_math_dir}/SbColor.cpp
  ${_orvex_math_dir}/SbLine.cpp
  ${_orvex_math_dir}/SbPlane.cpp
  ${_orvex_math_dir}/SbSphere.cpp
  ${_orvex_math_dir}/SbCylinder.cpp
  ${_orvex_math_dir}/SbViewVolume.cpp
  ${_orvex_math_dir}/SbViewportRegion.cpp
  ${_orvex_math_dir}/SbCPUID.cpp
  ${_orvex_math_dir}/SbDataType.cpp
)
