call run_qvsen3d_cluster.bat
call run_qvinv3d.bat
