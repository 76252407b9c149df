pfweight mag_weights.inp 4
magsen3d magsen3d.inp 4
maginv3d maginv3d.inp 4
