# sources.cmake - the NLP dictionary and word segmentation.
# (no sources yet)
