# sources.cmake - decision trees.
# (no sources yet)
