dmxerror grav.obs gzinv3d.pre error.dat mesh
