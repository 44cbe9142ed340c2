#include "toolkit/Picture.h"
#include "toolkit/Application.h"
#include <fstream>
#include <sstream>
#include <cstdio>
#include <cstdlib>
#include <chrono>
#include <sys/resource.h>
using namespace quorrin;
int main(int argc,char**argv){ ScreenlessToolkit t(argc,argv);
 for(int i=1;i<argc;++i){ std::ostringstream s; s<<std::ifstream(argv[i],std::ios::binary).rdbuf(); rusage a,b; getrusage(RUSAGE_SELF,&a);
 auto p=Picture::FromData(s.str(), getenv("MOST")?atoll(getenv("MOST")):Picture::anyNumberOfPixels);
 getrusage(RUSAGE_SELF,&b);
 std::printf("%s %lld x %lld  %.3f s %ld MB\n",argv[i],p?(long long)p->Width():0,p?(long long)p->Height():0,(b.ru_utime.tv_sec-a.ru_utime.tv_sec)+(b.ru_utime.tv_usec-a.ru_utime.tv_usec)/1e6+(b.ru_stime.tv_sec-a.ru_stime.tv_sec)+(b.ru_stime.tv_usec-a.ru_stime.tv_usec)/1e6,b.ru_maxrss/1024);}}
