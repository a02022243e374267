before(); /* opened here
 closed, as in pascal, here *) after();
/* opened

after an empty line */ no end
nor here }
*) after();
/* a star at the line end *
*) after();
/* opened again
and open to the end
