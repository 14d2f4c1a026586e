"""The wrapper generator: reads toolkit headers with libclang and writes the
JNI entry points and Java classes of the packages that have a rules file."""
