# The registry of binding units (SoModuleCheck), compiled into orvexbase.
list(APPEND ORVEXBASE_EXTRA_SOURCES ${CMAKE_CURRENT_LIST_DIR}/SoModuleCheck.cpp)
