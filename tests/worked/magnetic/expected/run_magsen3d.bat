pfweight mag_weights.inp 4
magsen3d magsen3d.inp 4
