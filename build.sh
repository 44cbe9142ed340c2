W=/work/wt/files
g++ -std=c++20 -O2 -I$W/src $1.cpp -o $1 $W/build/libquorrin_core.a $(ls $W/build/CMakeFiles/quorrin_core.dir/src/toolkit/EmbeddedArt.S.o) -lQt6Gui -lQt6Core -ldeflate
