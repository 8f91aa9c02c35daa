# Installs the built library into WORK_DIR/prefix, then builds and runs the consumer project against it.
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix --config ${CONFIG}
                RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "install failed: ${rc}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build
                  -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_BUILD_TYPE=${CONFIG}
                  "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
                RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "consumer configure failed: ${rc}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "consumer build failed: ${rc}")
endif()
execute_process(COMMAND ${WORK_DIR}/build/consumer RESULT_VARIABLE rc)
if(rc)
  message(FATAL_ERROR "consumer run failed: ${rc}")
endif()
