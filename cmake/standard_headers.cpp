// What the shared precompiled headers are compiled beside.
