# The XML-RPC library. It comes without a package description, so each of its libraries is looked up by name:
#   xmlrpc_values    values, fault carrier, XML (libxmlrpc, libxmlrpc_util)
#   xmlrpc_registry  the method registry on top of it (libxmlrpc_server)
find_path(XMLRPC_INCLUDE xmlrpc-c/base.h REQUIRED)
foreach(part xmlrpc xmlrpc_util xmlrpc_server)
    find_library(XMLRPC_LIB_${part} ${part} REQUIRED)
endforeach()

add_library(xmlrpc_values INTERFACE)
target_include_directories(xmlrpc_values SYSTEM INTERFACE ${XMLRPC_INCLUDE})
target_link_libraries(xmlrpc_values INTERFACE ${XMLRPC_LIB_xmlrpc} ${XMLRPC_LIB_xmlrpc_util})

add_library(xmlrpc_registry INTERFACE)
target_link_libraries(xmlrpc_registry INTERFACE ${XMLRPC_LIB_xmlrpc_server} xmlrpc_values)
