gzinv3d gzinv3d.inp
dmxerror grav.obs gzinv3d.pre error.dat mesh
