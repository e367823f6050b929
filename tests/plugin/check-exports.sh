#!/usr/bin/env bash
# The plug-in's dynamic symbol table holds exactly its nine SPI_ functions and five g_ objects.
set -euo pipefail
plugin=$1
actual=$(nm -D --defined-only "$plugin" | awk '{print $3}' | sort)
expected=$(printf '%s\n' SPI_CleanUpPlugin SPI_GetBitWidth SPI_GetCompilerVersion SPI_InitializeFunctionMap \
  SPI_IsDebugMode SPI_MinimumVersion SPI_PluginDispatchFunction SPI_VersionInfo SPI_VersionInfoEx \
  g_ClientMessageMap g_FunctionMap g_FunctorList g_PI_GarbageCollector g_This | sort)
if [ "$actual" != "$expected" ]; then
  echo "exported symbols differ from the plug-in interface:"
  diff <(echo "$expected") <(echo "$actual") || true
  exit 1
fi
echo "exports: the nine SPI_ functions and the five g_ objects"
