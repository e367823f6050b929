// Compiles the shared Qt precompiled header; it has no code of its own.
