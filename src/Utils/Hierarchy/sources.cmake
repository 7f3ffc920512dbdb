# sources.cmake - the prosodic hierarchy over the SSML tree.
# (no sources yet)
